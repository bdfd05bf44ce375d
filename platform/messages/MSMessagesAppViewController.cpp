#include "platform/messages/MSMessagesAppViewController.h"

void MSMessagesAppViewController::requestPresentationStyle(MSMessagesAppPresentationStyle style) {
    if (const std::shared_ptr<MessagesAppHost> host = m_host.lock()) {
        host->presentationStyleRequested(*this, style);
    }
}
