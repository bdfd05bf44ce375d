#pragma once

#include "platform/dispatch/MainRunLoop.h"
#include "platform/messages/MSMessagesAppViewController.h"
#include "platform/uikit/window/UIWindow.h"
#include "simulator/conversation/Device.h"

#include <vector>

/// Something that happened in the conversation, told in words.
struct Event {
    std::chrono::milliseconds time{0}; // since the conversation began, on the run loop's clock
    std::string kind;                  // "activation", "style", "tap", "screen", "link" …
    std::string text;
};

/// What somebody else has sent while the conversation was shown.
struct ArrivedMessage {
    std::string from;
    std::string text;
    std::optional<NSURL> link; // of a bubble that opens the extension
};

/// "compact" or "expanded".
[[nodiscard]] const char* nameOf(MSMessagesAppPresentationStyle style);

/// Plays the Messages app around one extension: makes its principal controller from the main bundle's storyboard,
/// shows it in a window, drives its callbacks, answers what it asks for and writes down what happens. People are called
/// "me", "A", "B" …; made by std::make_shared, closed before the run loop is reset.
class ConversationHost : public ExtensionHost, public std::enable_shared_from_this<ConversationHost> {
public:
    struct StyleRequest {
        std::chrono::milliseconds time{0};
        MSMessagesAppPresentationStyle style;
        bool changed = false; // false: the extension already had that style
    };
    struct OpenedLink {
        std::chrono::milliseconds time{0};
        NSURL url;
    };
    using Listener = std::function<void(const Event&)>;

    /// `participants` are the others, in the order in which the extension is told of them; `listener`, if any, hears
    /// of each event as it happens.
    ConversationHost(Device device, const std::vector<std::string>& participants, Listener listener = {});
    ~ConversationHost() override;

    [[nodiscard]] bool isOpen() const { return m_controller != nullptr; }
    [[nodiscard]] UIWindow& window() const { return *m_window; }
    [[nodiscard]] const std::shared_ptr<MSMessagesAppViewController>& controller() const { return m_controller; }
    [[nodiscard]] const Device& device() const { return m_device; }
    [[nodiscard]] MSMessagesAppPresentationStyle style() const { return m_style; }
    [[nodiscard]] const std::vector<Event>& events() const { return m_events; }
    [[nodiscard]] const std::vector<StyleRequest>& styleRequests() const { return m_styleRequests; }
    [[nodiscard]] const std::vector<OpenedLink>& links() const { return m_links; }
    /// The link that the phone tells of on its screen: the last one, until a finger touches or the extension is opened
    /// anew.
    [[nodiscard]] const std::optional<NSURL>& openedLink() const { return m_openedLink; }
    void forgetOpenedLink() { m_openedLink.reset(); }
    /// For the transcript around the extension, in order.
    [[nodiscard]] const std::vector<ArrivedMessage>& arrivedMessages() const { return m_arrivedMessages; }

    /// Opens the extension, or makes it active once more; `bubble` is the message it is opened from, may be null.
    /// Content begins to load in the next turn.
    void activate(const std::shared_ptr<MSMessage>& bubble);
    void receive(const std::shared_ptr<MSMessage>& message);
    /// Puts a message into the transcript; an extension that is open receives it.
    void arrive(ArrivedMessage message);
    void startSending();
    void cancelSending();
    void resign();
    /// What dragging the extension's handle does: transition callbacks, new frame, layout.
    void changeStyle(MSMessagesAppPresentationStyle style);
    /// Takes the extension down. Nothing of it is kept.
    void close();

    [[nodiscard]] std::shared_ptr<MSMessage> makeMessage(const std::string& from, const std::optional<NSURL>& url);

    /// Runs what is due now and lays the window out.
    void settle();
    void advance(std::chrono::milliseconds time);
    /// Writes an event down.
    void note(std::string kind, std::string text);

    void presentationStyleRequested(MSMessagesAppViewController& controller,
                                    MSMessagesAppPresentationStyle style) override;

private:
    class Context;

    void open();
    void place();
    void linkOpened(const NSURL& url);
    [[nodiscard]] NSUUID identifierOf(const std::string& person);
    [[nodiscard]] std::shared_ptr<MSMessage> draft() const;
    [[nodiscard]] std::shared_ptr<MSConversation> conversation();

    Device m_device;
    Listener m_listener;
    std::vector<std::pair<std::string, NSUUID>> m_people; // first "me"
    std::size_t m_remoteCount;
    std::shared_ptr<UIWindow> m_window;
    std::shared_ptr<MSMessagesAppViewController> m_controller;
    std::shared_ptr<MSMessage> m_bubble;
    MSMessagesAppPresentationStyle m_style = MSMessagesAppPresentationStyle::compact;
    std::vector<Event> m_events;
    std::vector<StyleRequest> m_styleRequests;
    std::vector<OpenedLink> m_links;
    std::optional<NSURL> m_openedLink;
    std::vector<ArrivedMessage> m_arrivedMessages;
};
