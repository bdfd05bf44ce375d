#pragma once

#include "platform/messages/MSConversation.h"
#include "platform/uikit/controllers/UIViewController.h"

#include <memory>

/// How much of the screen the extension has; the numbers are the host's own.
enum class MSMessagesAppPresentationStyle : unsigned { compact = 0, expanded = 1 };

class MSMessagesAppViewController;

/// What the extension can ask of the conversation's host. Implemented by the host, held weakly by the controller.
class ExtensionHost {
public:
    virtual ~ExtensionHost() = default;

    /// Called by requestPresentationStyle:. The host answers later, with the two transition callbacks.
    virtual void presentationStyleRequested(MSMessagesAppViewController& controller,
                                            MSMessagesAppPresentationStyle style) = 0;
};

/// Base of an extension's principal controller. The host makes it from the main storyboard and drives it through these
/// callbacks, on the main thread.
class MSMessagesAppViewController : public UIViewController {
public:
    using UIViewController::UIViewController;

    // clang-format off
    virtual void willBecomeActiveWithConversation(const std::shared_ptr<MSConversation>&) {}   // willBecomeActiveWithConversation:
    virtual void didResignActiveWithConversation(const std::shared_ptr<MSConversation>&) {}    // didResignActiveWithConversation:
    virtual void didReceiveMessageConversation(const std::shared_ptr<MSMessage>&, const std::shared_ptr<MSConversation>&) {}       // didReceiveMessage:conversation:
    virtual void didStartSendingMessageConversation(const std::shared_ptr<MSMessage>&, const std::shared_ptr<MSConversation>&) {}  // didStartSendingMessage:conversation:
    virtual void didCancelSendingMessageConversation(const std::shared_ptr<MSMessage>&, const std::shared_ptr<MSConversation>&) {} // didCancelSendingMessage:conversation:
    virtual void willTransitionToPresentationStyle(MSMessagesAppPresentationStyle) {}          // willTransitionToPresentationStyle:
    virtual void didTransitionToPresentationStyle(MSMessagesAppPresentationStyle) {}           // didTransitionToPresentationStyle:
    // clang-format on

    /// Asks the host for a style; without a host nothing happens. requestPresentationStyle:
    void requestPresentationStyle(MSMessagesAppPresentationStyle style);
    void setHost(std::weak_ptr<ExtensionHost> host) { m_host = std::move(host); }

private:
    std::weak_ptr<ExtensionHost> m_host;
};

/// Makes the conversation's classes known to interface files by name. Called once by the host; again is harmless.
void registerMessagesClasses();
