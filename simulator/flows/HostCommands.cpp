#include "simulator/conversation/ConversationHost.h"
#include "simulator/flows/FlowCommands.h"
#include "simulator/flows/FlowPlayer.h"

namespace {

using Style = MSMessagesAppPresentationStyle;

/// How long reading the content takes; a flow can act meanwhile.
void setLoadingTime(int milliseconds) {
    MainRunLoop::shared().setBackgroundLatency(std::chrono::milliseconds(milliseconds));
}

int readLoadingTime(const FlowValue& value) {
    const auto time = value.find("loadingTakes");
    return time ? time->count() : 0;
}

struct Bubble {
    std::string from = "A";
    std::optional<std::string> url;
};

Bubble readBubbleKeys(const FlowValue& value) {
    Bubble bubble;
    if (value.isMap()) {
        bubble.from = value.requiredText("from");
        if (const auto url = value.find("url")) {
            bubble.url = url->name();
            if (!NSURL::URLWithString(*bubble.url)) {
                url->complain("'" + *bubble.url + "' is not a link");
            }
        }
    }
    return bubble;
}

std::shared_ptr<MSMessage> makeMessage(FlowPlayer& player, const Bubble& bubble) {
    const std::optional<NSURL> url = bubble.url ? NSURL::URLWithString(*bubble.url) : std::nullopt;
    return player.host().makeMessage(bubble.from, url);
}

/// A command that the host can give only to an extension that is there.
template <class Act>
FlowAction whenOpen(Act act) {
    return [act](FlowPlayer& player) -> Outcome {
        if (!player.host().isOpen()) {
            return FlowPlayer::notOpened();
        }
        act(player);
        return std::nullopt;
    };
}

} // namespace

FlowAction readLaunchApp(const FlowValue& value) {
    if (!value.isNothing()) {
        value.allowOnly({"loadingTakes"});
    }
    return [time = readLoadingTime(value)](FlowPlayer& player) -> Outcome {
        setLoadingTime(time);
        player.host().activate(nullptr);
        return std::nullopt;
    };
}

FlowAction readOpenBubble(const FlowValue& value) {
    value.allowOnly({"from", "url", "loadingTakes"});
    return [bubble = readBubbleKeys(value), time = readLoadingTime(value)](FlowPlayer& player) -> Outcome {
        setLoadingTime(time);
        player.host().activate(makeMessage(player, bubble));
        return std::nullopt;
    };
}

FlowAction readReceiveMessage(const FlowValue& value) {
    value.allowOnly({"from", "url"});
    return whenOpen(
        [bubble = readBubbleKeys(value)](FlowPlayer& player) { player.host().receive(makeMessage(player, bubble)); });
}

FlowAction readStartSending(const FlowValue& value) {
    value.expectNothing();
    return whenOpen([](FlowPlayer& player) { player.host().startSending(); });
}

FlowAction readCancelSending(const FlowValue& value) {
    value.expectNothing();
    return whenOpen([](FlowPlayer& player) { player.host().cancelSending(); });
}

FlowAction readResign(const FlowValue& value) {
    value.expectNothing();
    return whenOpen([](FlowPlayer& player) { player.host().resign(); });
}

FlowAction readSetStyle(const FlowValue& value) {
    const std::string word = value.word({"compact", "expanded"});
    return whenOpen([style = word == "compact" ? Style::compact : Style::expanded](FlowPlayer& player) {
        player.host().changeStyle(style);
    });
}

FlowAction readWait(const FlowValue& value) {
    return [time = value.count()](FlowPlayer& player) -> Outcome {
        player.host().advance(std::chrono::milliseconds(time));
        return std::nullopt;
    };
}

FlowAction readWaitForAnimationToEnd(const FlowValue& value) {
    if (!value.isNothing()) {
        value.allowOnly({"timeout"});
    }
    const auto limit = value.find("timeout");
    return [time = limit ? limit->count() : 400](FlowPlayer& player) -> Outcome {
        player.host().advance(std::chrono::milliseconds(time));
        return std::nullopt;
    };
}
