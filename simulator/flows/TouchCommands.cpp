#include "simulator/flows/FlowCommands.h"

#include "platform/uikit/controls/UITextField.h"
#include "simulator/conversation/Finger.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/flows/FlowPlayer.h"

#include <algorithm>
#include <map>

namespace {

struct Stroke {
    std::vector<FlowPoint> points;
    int steps = Finger::stepsOfALine;
};

/// From where to where each direction goes, in per cent of the window.
Stroke strokeTowards(const std::string& direction) {
    static std::map<std::string, Stroke> strokes{
        {"UP", {{{50, 50, true}, {50, 10, true}}}},
        {"DOWN", {{{50, 20, true}, {50, 90, true}}}},
        {"LEFT", {{{90, 50, true}, {10, 50, true}}}},
        {"RIGHT", {{{10, 50, true}, {90, 50, true}}}},
    };
    return strokes[direction];
}

void drag(FlowPlayer& player, const Stroke& stroke, const std::function<void()>& beforeLifting = {}) {
    std::vector<CGPoint> points;
    for (const FlowPoint& point : stroke.points) {
        points.push_back(point.in(player.host().window().bounds().size));
    }
    Finger(player.host()).drag(points, beforeLifting, stroke.steps);
}

std::optional<Failure> tapElement(FlowPlayer& player, const Selector& selector) {
    const std::optional<ScreenElement> element = player.waitForElement(selector);
    if (!element) {
        return player.missing(selector);
    }
    const std::optional<CGPoint> point = element->pointToTouch();
    if (!point) {
        return Failure{selector.describe() + " cannot be tapped: a touch there would go to " + element->receiver()};
    }
    player.host().note("tap", "tapped " + selector.describe());
    Finger(player.host()).tap(*point);
    return std::nullopt;
}

std::optional<Failure> tapPlace(FlowPlayer& player, const FlowPoint& place) {
    if (!player.host().isOpen()) {
        return FlowPlayer::notOpened();
    }
    const CGRect bounds = player.host().window().bounds();
    const CGPoint point = place.in(bounds.size);
    if (!bounds.contains(point)) {
        return Failure{"the point lies outside of the extension"};
    }
    Finger(player.host()).tap(point);
    return std::nullopt;
}

/// For scrolling the finger keeps clear of what stands above a list.
Stroke strokeThatScrolls(const std::string& direction) {
    return direction == "DOWN" ? Stroke{{{50, 35, true}, {50, 90, true}}} : strokeTowards(direction);
}

/// What a scroll can change; equal before and after when the end is reached.
std::string look(FlowPlayer& player) {
    return describeTree(player.host().window(), TreeDetail::stable);
}

std::optional<Failure> scrollTo(FlowPlayer& player, const Selector& selector, const std::string& direction) {
    constexpr double whole = 0.999;
    while (true) {
        const std::optional<ScreenElement> element = player.find(selector);
        if (element && element->visibleShare() >= whole) {
            return std::nullopt;
        }
        const std::string before = look(player);
        drag(player, strokeThatScrolls(direction));
        if (look(player) == before) {
            return element ? std::nullopt : std::optional(player.missing(selector));
        }
    }
}

Stroke readStroke(const FlowValue& value) {
    Stroke stroke;
    for (const FlowValue& point : value.list()) {
        stroke.points.push_back(point.point());
    }
    if (stroke.points.size() < 2) {
        value.complain("a swipe needs two points at least");
    }
    return stroke;
}

Stroke readSwipeMap(const FlowValue& value) {
    value.allowOnly({"direction", "start", "end", "points", "steps", "takeScreenshot"});
    if (const auto points = value.find("points")) {
        Stroke stroke = readStroke(*points);
        stroke.steps = std::max(1, value.find("steps", &FlowValue::count).value_or(stroke.steps));
        return stroke;
    }
    if (const auto direction = value.find("direction")) {
        return strokeTowards(direction->word({"UP", "DOWN", "LEFT", "RIGHT"}));
    }
    const auto start = value.find("start");
    const auto end = value.find("end");
    if (!start || !end) {
        value.complain("'direction', 'points', or 'start' and 'end', must say where the finger goes");
        return {};
    }
    return {{start->point(), end->point()}};
}

FlowAction readTapOn(const FlowValue& value) {
    if (value.isMap()) {
        value.allowOnly({"text", "id", "index", "point"});
        if (const auto point = value.find("point")) {
            if (value.find("text") || value.find("id") || value.find("index")) {
                point->complain("a point is a place of its own; leave out 'text', 'id' and 'index'");
            }
            return [target = point->point()](FlowPlayer& player) -> std::optional<Failure> {
                return tapPlace(player, target);
            };
        }
        return [selector = value.selectorAmongKeys()](FlowPlayer& player) { return tapElement(player, selector); };
    }
    return [selector = value.selector()](FlowPlayer& player) { return tapElement(player, selector); };
}

FlowAction readSwipe(const FlowValue& value) {
    const Stroke stroke = value.isList() ? readStroke(value) : readSwipeMap(value);
    FlowAction picture; // of the moment before the finger is lifted
    if (const auto name = value.find("takeScreenshot")) {
        picture = readTakeScreenshot(*name);
    }
    return [stroke, picture](FlowPlayer& player) -> std::optional<Failure> {
        std::optional<Failure> failure;
        drag(player, stroke, [&] {
            if (picture) {
                failure = picture(player);
            }
        });
        return failure;
    };
}

FlowAction readScroll(const FlowValue& value) {
    value.expectNothing();
    return [](FlowPlayer& player) -> std::optional<Failure> {
        drag(player, strokeTowards("UP"));
        return std::nullopt;
    };
}

FlowAction readScrollUntilVisible(const FlowValue& value) {
    Selector selector;
    std::string direction = "UP";
    if (value.isMap()) {
        value.allowOnly({"element", "direction"});
        const auto element = value.find("element");
        if (element) {
            selector = element->selector();
        } else {
            value.complain("'element' must say what to scroll to");
        }
        if (const auto towards = value.find("direction")) { // the direction to look in; the finger goes the other way
            direction = towards->word({"UP", "DOWN"}) == "UP" ? "DOWN" : "UP";
        }
    } else {
        selector = value.selector();
    }
    return [selector, direction](FlowPlayer& player) { return scrollTo(player, selector, direction); };
}

FlowAction readInputText(const FlowValue& value) {
    return [text = value.text()](FlowPlayer& player) -> std::optional<Failure> {
        const auto field = std::dynamic_pointer_cast<UITextField>(UIResponder::firstResponder());
        if (!field) {
            return Failure{"no text field has the keyboard; tap on one first"};
        }
        for (const std::string& character : Finger::keystrokes(text)) {
            field->insertText(character);
        }
        player.host().settle();
        return std::nullopt;
    };
}

} // namespace

const std::vector<FlowCommand>& touchCommands() {
    static const std::vector<FlowCommand> commands{
        {"tapOn", readTapOn},         {"swipe", readSwipe},
        {"scroll", readScroll},       {"scrollUntilVisible", readScrollUntilVisible},
        {"inputText", readInputText},
    };
    return commands;
}
