#include "simulator/conversation/ConversationHost.h"
#include "simulator/flows/FlowCommands.h"
#include "simulator/flows/FlowPlayer.h"

namespace {

using Style = MSMessagesAppPresentationStyle;

int readLoadingTime(const FlowValue& value) {
    return value.find("loadingTakes", &FlowValue::count).value_or(0);
}

struct Bubble {
    std::string from = "A";
    std::optional<std::string> text;
    std::optional<NSURL> url;
};

Bubble readBubbleKeys(const FlowValue& value) {
    Bubble bubble;
    if (value.isMap()) {
        bubble.from = value.requiredText("from");
        bubble.text = value.find("text", &FlowValue::text);
        if (const auto url = value.find("url")) {
            const std::string text = url->name();
            bubble.url = NSURL::URLWithString(text);
            if (!bubble.url) {
                url->complain("'" + text + "' is not a link");
            }
        }
    }
    return bubble;
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
FlowAction readCall(const FlowValue& value) {
    value.expectNothing();
    return whenOpen([](ConversationHost& host) { (host.*act)(); });
}

FlowAction advance(int milliseconds) {
    return [milliseconds](FlowPlayer& player) -> std::optional<Failure> {
        player.host().advance(std::chrono::milliseconds(milliseconds));
        return std::nullopt;
    };
}

FlowAction activate(const std::optional<Bubble>& bubble, int loadingTime) {
    return [bubble, loadingTime](FlowPlayer& player) -> std::optional<Failure> {
        // A flow can act while the content is still being read.
        MainRunLoop::shared().setBackgroundLatency(std::chrono::milliseconds(loadingTime));
        player.host().activate(bubble ? player.host().makeMessage(bubble->from, bubble->url) : nullptr);
        return std::nullopt;
    };
}

FlowAction readLaunchApp(const FlowValue& value) {
    value.expectNothingBut("loadingTakes");
    return activate(std::nullopt, readLoadingTime(value));
}

FlowAction readOpenBubble(const FlowValue& value) {
    value.allowOnly({"from", "url", "loadingTakes"});
    return activate(readBubbleKeys(value), readLoadingTime(value));
}

FlowAction readReceiveMessage(const FlowValue& value) {
    value.allowOnly({"from", "text", "url"});
    const Bubble bubble = readBubbleKeys(value);
    if (bubble.text) { // it shows in the conversation, whether the extension is open or not
        return [bubble](FlowPlayer& player) -> std::optional<Failure> {
            player.host().arrive({bubble.from, *bubble.text, bubble.url});
            return std::nullopt;
        };
    }
    return whenOpen([bubble](ConversationHost& host) { host.receive(host.makeMessage(bubble.from, bubble.url)); });
}

FlowAction readClose(const FlowValue& value) {
    value.expectNothing();
    return whenOpen([](ConversationHost& host) {
        host.forgetOpenedLink();
        host.resign();
        host.close();
    });
}

FlowAction readSetStyle(const FlowValue& value) {
    const Style style = value.word({"compact", "expanded"}) == "compact" ? Style::compact : Style::expanded;
    return whenOpen([style](ConversationHost& host) {
        host.forgetOpenedLink(); // a finger drags
        host.changeStyle(style);
    });
}

FlowAction readWait(const FlowValue& value) {
    return advance(value.count());
}

FlowAction readWaitForAnimationToEnd(const FlowValue& value) {
    value.expectNothingBut("timeout");
    return advance(value.find("timeout", &FlowValue::count).value_or(400));
}

} // namespace

const std::vector<FlowCommand>& hostCommands() {
    static const std::vector<FlowCommand> commands{
        {"launchApp", readLaunchApp},
        {"openBubble", readOpenBubble},
        {"receiveMessage", readReceiveMessage},
        {"startSending", readCall<&ConversationHost::startSending>},
        {"cancelSending", readCall<&ConversationHost::cancelSending>},
        {"resign", readCall<&ConversationHost::resign>},
        {"close", readClose},
        {"setStyle", readSetStyle},
        {"wait", readWait},
        {"waitForAnimationToEnd", readWaitForAnimationToEnd},
    };
    return commands;
}
