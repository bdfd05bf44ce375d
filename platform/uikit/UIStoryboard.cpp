#include "platform/uikit/UIStoryboard.h"

#include "platform/uikit/InterfaceProvider.h"

std::shared_ptr<UIStoryboard> UIStoryboard::storyboardWithNameBundle(const std::string& name, const NSBundle& bundle) {
    return InterfaceProvider::current().storyboard(name, bundle);
}
