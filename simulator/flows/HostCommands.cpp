#include "simulator/conversation/ConversationHost.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowTable.h"
#include "simulator/flows/FlowValue.h"

namespace {

using Style = MSMessagesAppPresentationStyle;

/// What somebody sends, or the bubble it became.
struct Bubble {
    std::string from;
    std::optional<std::string> text;
    std::optional<NSURL> url;
};

Bubble bubbleIn(const FlowValue& value) {
    return {value.find("from")->text(), value.find("text", &FlowValue::text), value.find("url", &FlowValue::link)};
}

/// A command that the host can give only to an extension that is there.
template <class Act>
FlowAction whenOpen(Act act) {
    return [act](FlowPlayer& player) -> std::optional<Failure> {
        if (!player.host().isOpen()) {
            return FlowPlayer::notOpened();
        }
        act(player.host());
        return std::nullopt;
    };
}

/// A command that takes no value.
template <void (ConversationHost::*act)()>
FlowAction makeCall(const FlowValue&) {
    return whenOpen([](ConversationHost& host) { (host.*act)(); });
}

FlowAction advance(int milliseconds) {
    return [milliseconds](FlowPlayer& player) -> std::optional<Failure> {
        player.host().advance(std::chrono::milliseconds(milliseconds));
        return std::nullopt;
    };
}

FlowAction activate(const std::optional<Bubble>& bubble, const FlowValue& value) {
    const std::chrono::milliseconds loadingTime(value.find("loadingTakes", &FlowValue::number).value_or(0));
    return [bubble, loadingTime](FlowPlayer& player) -> std::optional<Failure> {
        MainRunLoop::shared().setBackgroundLatency(loadingTime); // a flow can act while the content is still being read
        player.host().activate(bubble ? player.host().makeMessage(bubble->from, bubble->url) : nullptr);
        return std::nullopt;
    };
}

FlowAction makeLaunchApp(const FlowValue& value) {
    return activate(std::nullopt, value);
}

FlowAction makeOpenBubble(const FlowValue& value) {
    return activate(bubbleIn(value), value);
}

FlowAction makeReceiveMessage(const FlowValue& value) {
    const Bubble bubble = bubbleIn(value);
    if (bubble.text) { // it shows in the conversation, whether the extension is open or not
        return [bubble](FlowPlayer& player) -> std::optional<Failure> {
            player.host().arrive({bubble.from, *bubble.text, bubble.url});
            return std::nullopt;
        };
    }
    return whenOpen([bubble](ConversationHost& host) { host.receive(host.makeMessage(bubble.from, bubble.url)); });
}

FlowAction makeClose(const FlowValue&) {
    return whenOpen([](ConversationHost& host) {
        host.forgetOpenedLink();
        host.resign();
        host.close();
    });
}

FlowAction makeSetStyle(const FlowValue& value) {
    const Style style = value.text() == "compact" ? Style::compact : Style::expanded;
    return whenOpen([style](ConversationHost& host) {
        host.forgetOpenedLink(); // a finger drags
        host.changeStyle(style);
    });
}

FlowAction makeWait(const FlowValue& value) {
    return advance(value.number());
}

FlowAction makeWaitForAnimationToEnd(const FlowValue& value) {
    return advance(value.find("timeout", &FlowValue::number).value_or(400));
}

const FlowKey from{"from", {FlowType::person}, "who has sent it", FlowNeed::required};
const FlowKey url{"url", {FlowType::link}, "the link that the bubble carries"};
const FlowKey loadingTakes{"loadingTakes", {FlowType::number}, "milliseconds that reading the content takes"};
const FlowCommands commands{
    {"launchApp",
     {{FlowType::nothing}},
     {loadingTakes},
     "the extension becomes active",
     {"launchApp", "launchApp: {loadingTakes: 2000}"},
     makeLaunchApp},
    {"openBubble",
     {},
     {from, url, loadingTakes},
     "the extension is opened from a message bubble",
     {"openBubble: {from: A, url: \"https://truths-and-dares.example/Category\"}"},
     makeOpenBubble},
    {"receiveMessage",
     {},
     {from, {"text", {FlowType::text}, "shows it in the conversation, too"}, url},
     "a message arrives; with `text` even while the extension is closed",
     {"receiveMessage: {from: A}", "receiveMessage: {from: A, text: Hi}"},
     makeReceiveMessage},
    {"startSending",
     {{FlowType::nothing}},
     {},
     "the player begins to send a message",
     {"startSending"},
     makeCall<&ConversationHost::startSending>},
    {"cancelSending",
     {{FlowType::nothing}},
     {},
     "the player does not send it after all",
     {"cancelSending"},
     makeCall<&ConversationHost::cancelSending>},
    {"resign",
     {{FlowType::nothing}},
     {},
     "the extension is told that it is no longer active",
     {"resign"},
     makeCall<&ConversationHost::resign>},
    {"close",
     {{FlowType::nothing}},
     {},
     "the player closes the extension; nothing of it is kept",
     {"close"},
     makeClose},
    {"setStyle",
     {{FlowType::word, {"compact", "expanded"}}},
     {},
     "the player drags the extension's handle",
     {"setStyle: compact"},
     makeSetStyle},
    {"wait",
     {{FlowType::number}},
     {},
     "virtual milliseconds; nothing else takes time but drags and waiting for an element",
     {"wait: 500"},
     makeWait},
    {"waitForAnimationToEnd",
     {{FlowType::nothing}},
     {{"timeout", {FlowType::number}, "milliseconds, 400 when left out: nothing moves longer"}},
     "lets what moves come to rest",
     {"waitForAnimationToEnd", "waitForAnimationToEnd: {timeout: 500}"},
     makeWaitForAnimationToEnd},
};

} // namespace

const FlowCommands& hostCommands() {
    return commands;
}
