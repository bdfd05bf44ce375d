#pragma once

#include "platform/messages/MSMessagesAppViewController.h"
#include "platform/uikit/controls/UITextField.h"

#include <memory>
#include <string>

/// The extension's principal controller. The host makes it from the main storyboard and drives it through the
/// callbacks. It keeps one child, the category screen, and installs a fresh one at every activation and every received
/// message; it holds no state of its own. As a text field's delegate it lets only short words be typed.
class MessagesViewController : public MSMessagesAppViewController, public UITextFieldDelegate {
public:
    using MSMessagesAppViewController::MSMessagesAppViewController;

    void viewDidLoad() override;

    void willBecomeActiveWithConversation(const std::shared_ptr<MSConversation>& conversation) override;
    void didResignActiveWithConversation(const std::shared_ptr<MSConversation>& conversation) override;
    void didReceiveMessageConversation(const std::shared_ptr<MSMessage>& message,
                                       const std::shared_ptr<MSConversation>& conversation) override;
    void didStartSendingMessageConversation(const std::shared_ptr<MSMessage>& message,
                                            const std::shared_ptr<MSConversation>& conversation) override;
    void didCancelSendingMessageConversation(const std::shared_ptr<MSMessage>& message,
                                             const std::shared_ptr<MSConversation>& conversation) override;
    void willTransitionToPresentationStyle(MSMessagesAppPresentationStyle style) override;
    void didTransitionToPresentationStyle(MSMessagesAppPresentationStyle style) override;

    bool textFieldShouldChangeCharactersInRangeReplacementString(UITextField& field, NSRange range,
                                                                 const std::string& replacement) override;
    bool textFieldShouldReturn(UITextField& field) override;

private:
    void presentCategoryScreen(const MSConversation& conversation);
    void removeChildren();
    void installCategoryScreen();
    void embedChildController(const std::shared_ptr<UIViewController>& child);
    void requestExpandedStyleLater();
};

/// Makes the controller known to interface files by name. Called once before the first file is read.
void registerHostClasses();
