#include "platform/messages/MSMessagesAppViewController.h"

#include "platform/runtime/ClassBuilder.h"

void MSMessagesAppViewController::requestPresentationStyle(MSMessagesAppPresentationStyle style) {
    if (const std::shared_ptr<ExtensionHost> host = m_host.lock()) {
        host->presentationStyleRequested(*this, style);
    }
}

void registerMessagesClasses() {
    ClassBuilder<MSMessagesAppViewController>("MSMessagesAppViewController", "UIViewController").madeByCoder();
}
