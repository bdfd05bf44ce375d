#pragma once

#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Result.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// An interface file whose objects can be made again and again. Abstract for those who only use nibs; the static
/// function and loadNibNamedOwner are defined with the reader of the files, in platform/interface/Nib.cpp.
class UINib : public NSObject {
public:
    /// Never null; a file that is missing or wrong shows when it is instantiated.
    [[nodiscard]] static std::shared_ptr<UINib> nibWithNibNameBundle(const std::string& name, const NSBundle& bundle);

    /// For messages; the file's name without extension.
    [[nodiscard]] virtual std::string name() const { return {}; }
    /// New top-level objects in file order, connected and awakened; `owner` stands for the file's owner, may be null.
    /// The failure tells all that is wrong, one finding a line, each with file, line and element.
    [[nodiscard]] virtual Result<std::vector<std::shared_ptr<NSObject>>>
    instantiateWithOwner(const std::shared_ptr<NSObject>& owner) = 0;
};

/// The top-level objects of a new instance of the nib, or nothing when the bundle has no such nib or it cannot be read;
/// then one line on standard error says why. loadNibNamed:owner:options:
[[nodiscard]] std::optional<std::vector<std::shared_ptr<NSObject>>>
loadNibNamedOwner(const NSBundle& bundle, const std::string& name, const std::shared_ptr<NSObject>& owner);
