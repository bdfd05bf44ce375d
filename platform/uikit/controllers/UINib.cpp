#include "platform/uikit/controllers/UINib.h"

#include "platform/uikit/controllers/InterfaceProvider.h"

#include <cstdio>

std::shared_ptr<UINib> UINib::nibWithNibNameBundle(const std::string& name, const NSBundle& bundle) {
    return InterfaceProvider::current().nib(name, bundle);
}

std::optional<std::vector<std::shared_ptr<NSObject>>> loadNibNamedOwner(const NSBundle& bundle, const std::string& name,
                                                                        const std::shared_ptr<NSObject>& owner) {
    Result<std::vector<std::shared_ptr<NSObject>>> objects =
        UINib::nibWithNibNameBundle(name, bundle)->instantiateWithOwner(owner);
    if (!objects) {
        std::fprintf(stderr, "%s\n", objects.failure().what.c_str());
        return std::nullopt;
    }
    return std::move(objects).value();
}
