#include "host/MessagesViewController.h"

#include "host/WordFilter.h"

#include "platform/dispatch/Dispatch.h"
#include "platform/foundation/DebugConsole.h"
#include "platform/runtime/ClassBuilder.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controllers/UIStoryboard.h"
#include "platform/uikit/view/UIView.h"

#include <vector>

namespace {

constexpr std::int64_t expandedStyleDelay = NSEC_PER_SEC / 2;

/// The bubble that the player opened the extension from; null when there was none. One without a link does not count.
const MSMessage* openedBubble(const MSConversation& conversation) {
    const MSMessage* message = conversation.selectedMessage().get();
    return message != nullptr && message->URL() ? message : nullptr;
}

bool isFromFirstRemoteParticipant(const MSMessage& message, const MSConversation& conversation) {
    const std::vector<NSUUID>& remotes = conversation.remoteParticipantIdentifiers();
    return !remotes.empty() && remotes.front() == message.senderParticipantIdentifier();
}

void printReceived() {
    print("----------------");
    print("Recieved");
    print("----------------");
}

} // namespace

void MessagesViewController::viewDidLoad() {
    MSMessagesAppViewController::viewDidLoad();
}

void MessagesViewController::willBecomeActiveWithConversation(const std::shared_ptr<MSConversation>& conversation) {
    print("willBecomeActive");
    presentCategoryScreen(*conversation);
}

void MessagesViewController::didResignActiveWithConversation(const std::shared_ptr<MSConversation>&) {
    print("didResignActive");
}

void MessagesViewController::didReceiveMessageConversation(const std::shared_ptr<MSMessage>&,
                                                           const std::shared_ptr<MSConversation>& conversation) {
    print("didReceive");
    presentCategoryScreen(*conversation);
}

void MessagesViewController::didStartSendingMessageConversation(const std::shared_ptr<MSMessage>&,
                                                                const std::shared_ptr<MSConversation>&) {
    print("didStartSending");
}

void MessagesViewController::didCancelSendingMessageConversation(const std::shared_ptr<MSMessage>&,
                                                                 const std::shared_ptr<MSConversation>&) {
    print("didCancelSending");
}

void MessagesViewController::willTransitionToPresentationStyle(MSMessagesAppPresentationStyle) {
    print("willTransition");
}

void MessagesViewController::didTransitionToPresentationStyle(MSMessagesAppPresentationStyle) {
    print("didTransition");
}

bool MessagesViewController::textFieldShouldChangeCharactersInRangeReplacementString(UITextField& field, NSRange range,
                                                                                     const std::string& replacement) {
    return wordFilterAccepts(field.text().value_or(""), range, replacement);
}

bool MessagesViewController::textFieldShouldReturn(UITextField& field) {
    field.resignFirstResponder();
    return true;
}

void MessagesViewController::presentCategoryScreen(const MSConversation& conversation) {
    removeChildren();
    if (const MSMessage* message = openedBubble(conversation)) {
        if (isFromFirstRemoteParticipant(*message, conversation)) {
            printReceived();
        }
        installCategoryScreen();
    } else {
        installCategoryScreen();
        requestExpandedStyleLater();
    }
}

void MessagesViewController::removeChildren() {
    const std::vector<std::shared_ptr<UIViewController>> children = childViewControllers();
    for (const std::shared_ptr<UIViewController>& child : children) {
        child->willMoveToParentViewController(nullptr);
        child->view()->removeFromSuperview();
        child->removeFromParentViewController();
    }
}

void MessagesViewController::installCategoryScreen() {
    const std::shared_ptr<UIStoryboard> source = storyboard();
    if (!source) {
        fatalErrorAt(*this, "the controller was not made from a storyboard, where its screen's scene would be");
    }
    embedChildController(source->instantiateViewControllerWithIdentifier("CategoriesVC"));
}

void MessagesViewController::embedChildController(const std::shared_ptr<UIViewController>& child) {
    addChildViewController(child);
    UIView& container = *view();
    UIView& screen = *child->view();
    screen.setFrame(container.bounds());
    container.addSubview(child->view());
    screen.setTranslatesAutoresizingMaskIntoConstraints(false);
    screen.leftAnchor().constraintEqualToAnchor(container.leftAnchor())->setActive(true);
    screen.rightAnchor().constraintEqualToAnchor(container.rightAnchor())->setActive(true);
    screen.topAnchor().constraintEqualToAnchor(container.topAnchor())->setActive(true);
    screen.bottomAnchor().constraintEqualToAnchor(container.bottomAnchor())->setActive(true);
    child->didMoveToParentViewController(this);
}

void MessagesViewController::requestExpandedStyleLater() {
    const dispatch_time_t deadline = dispatch_time(DISPATCH_TIME_NOW, expandedStyleDelay);
    dispatch_after(deadline, dispatch_get_main_queue(),
                   [self = strong(this)] { self->requestPresentationStyle(MSMessagesAppPresentationStyle::expanded); });
}

void registerHostClasses() {
    ClassBuilder<MessagesViewController>("MessagesViewController", "MSMessagesAppViewController")
        .madeByCoder()
        .asksFor(AskedResource::Kind::scene, {"CategoriesVC"});
}
