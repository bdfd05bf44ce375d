#include "simulator/conversation/ConversationHost.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSURL.h"
#include "platform/uikit/controllers/UIStoryboard.h"
#include "platform/uikit/window/UIScreen.h"
#include "simulator/conversation/BundleSetup.h"

using Style = MSMessagesAppPresentationStyle;

namespace {

std::chrono::milliseconds nowInMilliseconds() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(MainRunLoop::shared().now());
}

} // namespace

const char* nameOf(Style style) {
    return style == Style::compact ? "compact" : "expanded";
}

/// What the extension opens links through: every link is taken, by writing it down.
class ConversationHost::Context : public NSExtensionContext {
public:
    explicit Context(std::weak_ptr<ConversationHost> host) : m_host(std::move(host)) {}

    void openURLCompletionHandler(const NSURL& url, std::function<void(bool)> completionHandler) override {
        const std::shared_ptr<ConversationHost> host = m_host.lock();
        if (host) {
            host->linkOpened(url);
        }
        if (completionHandler) {
            completionHandler(host != nullptr);
        }
    }

private:
    std::weak_ptr<ConversationHost> m_host;
};

ConversationHost::ConversationHost(Device device, const std::vector<std::string>& participants, Listener listener)
    : m_device(std::move(device)), m_listener(std::move(listener)), m_remoteCount(participants.size()) {
    m_people.emplace_back("me", NSUUID::UUID());
    for (const std::string& name : participants) {
        m_people.emplace_back(name, NSUUID::UUID());
    }
    UIScreen::mainScreen().configure(m_device.size, m_device.scale);
    UIScreen::mainScreen().setContentSizeCategory(m_device.textSize);
    UIScreen::mainScreen().setUserInterfaceLayoutDirection(m_device.direction);
    m_window = std::make_shared<UIWindow>(m_device.compactFrame());
}

ConversationHost::~ConversationHost() {
    close();
}

void ConversationHost::activate(const std::shared_ptr<MSMessage>& bubble) {
    m_bubble = bubble;
    forgetOpenedLink();
    if (!m_controller) {
        open();
    }
    note("activation", bubble == nullptr ? "the extension becomes active"
                       : bubble->URL()   ? "the extension becomes active, opened from a bubble with a link"
                                         : "the extension becomes active, opened from a bubble without a link");
    m_controller->willBecomeActiveWithConversation(conversation());
    m_window->layoutIfNeeded();
}

void ConversationHost::open() {
    const std::optional<std::string> name = mainStoryboardName();
    if (!name) {
        fatalError("Info.plist of the bundle names no main storyboard (" + std::string(mainStoryboardKey) + ")");
    }
    const auto storyboard = UIStoryboard::storyboardWithNameBundle(*name, NSBundle::mainBundle());
    m_controller =
        std::dynamic_pointer_cast<MSMessagesAppViewController>(storyboard->instantiateInitialViewController());
    if (!m_controller) {
        fatalError("the initial controller of " + *name + " is no MSMessagesAppViewController");
    }
    m_controller->setHost(weak_from_this());
    m_controller->setExtensionContext(std::make_shared<Context>(weak_from_this()));
    m_style = Style::compact;
    place();
    m_window->setRootViewController(m_controller);
}

void ConversationHost::receive(const std::shared_ptr<MSMessage>& message) {
    note("message", "a message arrives");
    m_controller->didReceiveMessageConversation(message, conversation());
}

void ConversationHost::arrive(ArrivedMessage message) {
    m_arrivedMessages.push_back(std::move(message));
    if (m_controller) {
        receive(makeMessage(m_arrivedMessages.back().from, m_arrivedMessages.back().link));
    }
}

void ConversationHost::startSending() {
    note("sending", "the player starts sending a message");
    m_controller->didStartSendingMessageConversation(draft(), conversation());
}

void ConversationHost::cancelSending() {
    note("sending", "the player cancels sending");
    m_controller->didCancelSendingMessageConversation(draft(), conversation());
}

void ConversationHost::resign() {
    note("activation", "the extension resigns");
    m_controller->didResignActiveWithConversation(conversation());
}

void ConversationHost::changeStyle(Style style) {
    if (!m_controller || m_style == style) {
        return;
    }
    const std::shared_ptr<MSMessagesAppViewController> controller = m_controller;
    controller->willTransitionToPresentationStyle(style);
    m_style = style;
    place();
    m_window->layoutIfNeeded();
    note("style", std::string("the extension is now ") + nameOf(style));
    controller->didTransitionToPresentationStyle(style);
}

void ConversationHost::presentationStyleRequested(MSMessagesAppViewController& controller, Style style) {
    const bool changes = &controller == m_controller.get() && style != m_style;
    m_styleRequests.push_back({nowInMilliseconds(), style, changes});
    note("style",
         std::string("the extension asks for the ") + nameOf(style) + " style" + (changes ? "" : ", which it has"));
    if (changes) {
        dispatch_async(dispatch_get_main_queue(), [weak = weak_from_this(), style] {
            if (const std::shared_ptr<ConversationHost> host = weak.lock()) {
                host->changeStyle(style);
            }
        });
    }
}

void ConversationHost::place() {
    const bool expanded = m_style == Style::expanded;
    m_window->setFrame(expanded ? m_device.expandedFrame() : m_device.compactFrame());
    m_window->setWindowSafeAreaInsets({0, 0, m_device.safeArea.bottom, 0});
}

void ConversationHost::close() {
    m_window->setRootViewController(nullptr);
    m_controller = nullptr;
    m_bubble = nullptr;
}

void ConversationHost::linkOpened(const NSURL& url) {
    m_links.push_back({nowInMilliseconds(), url});
    m_openedLink = url;
    note("link", "opened the link " + url.absoluteString());
    for (const NSURLQueryItem& item : NSURLComponents::componentsWithURL(url).queryItems) {
        note("link item", "    " + item.name + " = " + item.value.value_or("(no value)"));
    }
}

void ConversationHost::note(std::string kind, std::string text) {
    m_events.push_back({nowInMilliseconds(), std::move(kind), std::move(text)});
    if (m_listener) {
        m_listener(m_events.back());
    }
}

void ConversationHost::settle() {
    MainRunLoop::shared().runUntilIdle();
    m_window->layoutIfNeeded();
}

void ConversationHost::advance(std::chrono::milliseconds time) {
    MainRunLoop::shared().advance(time);
    settle();
}

NSUUID ConversationHost::identifierOf(const std::string& person) {
    for (const auto& [name, identifier] : m_people) {
        if (name == person) {
            return identifier;
        }
    }
    m_people.emplace_back(person, NSUUID::UUID()); // somebody who is not, or no longer, in the conversation
    return m_people.back().second;
}

std::shared_ptr<MSMessage> ConversationHost::makeMessage(const std::string& from, const std::optional<NSURL>& url) {
    return std::make_shared<MSMessage>(identifierOf(from), url);
}

std::shared_ptr<MSMessage> ConversationHost::draft() const {
    return std::make_shared<MSMessage>(m_people.front().second, std::nullopt);
}

std::shared_ptr<MSConversation> ConversationHost::conversation() {
    std::vector<NSUUID> remotes;
    for (std::size_t i = 1; i <= m_remoteCount; ++i) {
        remotes.push_back(m_people[i].second);
    }
    return std::make_shared<MSConversation>(std::move(remotes), m_bubble);
}
