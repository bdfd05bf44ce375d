#include "content/ExtensionBundle.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/NSBundle.h"
#include "platform/uikit/controllers/UINib.h"

#include <optional>
#include <vector>

std::shared_ptr<NSObject> firstObjectOfNib(const std::string& nibName) {
    const std::optional<std::vector<std::shared_ptr<NSObject>>> objects =
        loadNibNamedOwner(NSBundle::mainBundle(), nibName, nullptr);
    return objects && !objects->empty() ? objects->front() : nullptr;
}

void stopForMissingView(std::string_view className) {
    // The place is part of the message's contract, whatever line this stands on.
    fatalError("Could not load view with type " + std::string(className), "ExtensionBundle", 18);
}
