#include "platform/uikit/controllers/UIStoryboard.h"

#include "platform/uikit/controllers/InterfaceProvider.h"

std::shared_ptr<UIStoryboard> UIStoryboard::storyboardWithNameBundle(const std::string& name, const NSBundle& bundle) {
    return InterfaceProvider::current().storyboard(name, bundle);
}
