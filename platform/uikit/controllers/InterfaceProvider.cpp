#include "platform/uikit/controllers/InterfaceProvider.h"

#include "platform/foundation/FatalError.h"

namespace {

std::unique_ptr<InterfaceProvider>& installed() {
    static std::unique_ptr<InterfaceProvider> provider;
    return provider;
}

} // namespace

InterfaceProvider& InterfaceProvider::current() {
    if (!installed()) {
        fatalError("No reader of interface files is installed");
    }
    return *installed();
}

void InterfaceProvider::setCurrent(std::unique_ptr<InterfaceProvider> provider) {
    installed() = std::move(provider);
}
