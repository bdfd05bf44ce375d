#include "platform/uikit/controls/UITextField.h"
#include "simulator/conversation/Finger.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowTable.h"
#include "simulator/flows/FlowValue.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

struct Stroke {
    std::vector<FlowPoint> points;
    int steps = Finger::usualSteps;
    std::chrono::milliseconds time = Finger::usualTime;
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
    Finger(player.host()).drag(points, beforeLifting, stroke.steps, stroke.time);
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

std::string inPoints(double x, const char* between, double y) {
    return std::to_string(std::lround(x)) + between + std::to_string(std::lround(y));
}

std::optional<Failure> tapPlace(FlowPlayer& player, const FlowPoint& place) {
    if (!player.host().isOpen()) {
        return FlowPlayer::notOpened();
    }
    const CGRect bounds = player.host().window().bounds();
    const CGPoint point = place.in(bounds.size);
    if (!bounds.contains(point)) {
        return Failure{"the point " + inPoints(point.x, ", ", point.y) + " lies outside of the extension, which is " +
                       inPoints(bounds.size.width, " x ", bounds.size.height) + " points"};
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
            return element ? std::nullopt
                           : std::optional(Failure{player.missing(selector).what + "; this is the end of the list"});
        }
    }
}

Stroke strokeIn(const FlowValue& value) {
    const auto points = value.isList() ? std::optional(value.points()) : value.find("points", &FlowValue::points);
    const auto direction = value.find("direction", &FlowValue::text);
    const auto start = value.find("start", &FlowValue::point);
    const auto end = value.find("end", &FlowValue::point);
    if (!points && !direction && !(start && end)) {
        value.complain("'direction', 'points', or 'start' and 'end', must say where the finger goes");
        return {};
    }
    Stroke stroke = points ? Stroke{*points} : direction ? strokeTowards(*direction) : Stroke{{*start, *end}};
    stroke.steps = std::clamp(value.find("steps", &FlowValue::number).value_or(stroke.steps), 1, 1000);
    if (const auto time = value.find("duration", &FlowValue::number)) {
        stroke.time = std::chrono::milliseconds(*time);
    }
    return stroke;
}

FlowAction makeTapOn(const FlowValue& value) {
    const auto point = value.find("point");
    if (!point) {
        return [selector = value.selector()](FlowPlayer& player) { return tapElement(player, selector); };
    }
    if (value.find("text") || value.find("id") || value.find("index")) {
        point->complain("a point is a place of its own; leave out 'text', 'id' and 'index'");
    }
    return [target = point->point()](FlowPlayer& player) { return tapPlace(player, target); };
}

FlowAction makeSwipe(const FlowValue& value) {
    FlowAction picture; // of the moment before the finger is lifted
    if (const auto name = value.find("takeScreenshot")) {
        picture = makeTakeScreenshot(*name);
    }
    return [stroke = strokeIn(value), picture](FlowPlayer& player) -> std::optional<Failure> {
        std::optional<Failure> failure;
        drag(player, stroke, [&] {
            if (picture) {
                failure = picture(player);
            }
        });
        return failure;
    };
}

FlowAction makeScroll(const FlowValue&) {
    return [](FlowPlayer& player) -> std::optional<Failure> {
        drag(player, strokeTowards("UP"));
        return std::nullopt;
    };
}

FlowAction makeScrollUntilVisible(const FlowValue& value) {
    // The direction to look in; the finger goes the other way.
    const std::string direction = value.find("direction", &FlowValue::text).value_or("DOWN") == "UP" ? "DOWN" : "UP";
    return [selector = value.itselfOr("element")->selector(), direction](FlowPlayer& player) {
        return scrollTo(player, selector, direction);
    };
}

/// What is done in the text field that has the keyboard.
FlowAction inField(const std::function<void(UITextField&)>& act) {
    return [act](FlowPlayer& player) -> std::optional<Failure> {
        const auto field = std::dynamic_pointer_cast<UITextField>(UIResponder::firstResponder());
        if (!field) {
            return Failure{"no text field has the keyboard; tap on one first"};
        }
        act(*field);
        player.host().settle();
        return std::nullopt;
    };
}

FlowAction makeInputText(const FlowValue& value) {
    return inField([text = value.itselfOr("text")->text()](UITextField& field) {
        for (const std::string& character : Finger::keystrokes(text)) {
            static_cast<void>(field.insertText(character));
        }
    });
}

FlowAction makeEraseText(const FlowValue& value) {
    const auto characters =
        value.isText() ? value.number() : value.find("charactersToErase", &FlowValue::number).value_or(50);
    return inField([characters](UITextField& field) {
        for (int i = 0; i < characters && Finger::eraseLast(field); ++i) {
        }
    });
}

FlowAction makeHideKeyboard(const FlowValue&) {
    return inField([](UITextField& field) { static_cast<void>(field.resignFirstResponder()); });
}

const FlowForm everyDirection{FlowType::word, {"UP", "DOWN", "LEFT", "RIGHT"}};
const FlowCommands commands{
    {"tapOn",
     {{FlowType::name}},
     joined(selectorKeys(), {{"point", {FlowType::point}, "a place of the extension instead"}}),
     "a touch on an element or a place",
     {"tapOn: Friends", "tapOn: {text: Play, index: 1}", "tapOn: {text: Play, below: Chaos Hour}",
      "tapOn: {point: \"50%,20%\"}"},
     makeTapOn},
    {"scroll", {{FlowType::nothing}}, {}, "one drag upwards through the table", {"scroll"}, makeScroll},
    {"scrollUntilVisible",
     {{FlowType::name}},
     {{"element", {FlowType::selector}, "what is looked for", FlowNeed::required},
      {"direction", {FlowType::word, {"UP", "DOWN"}}, "where it is looked for; DOWN when left out"}},
     "drags through the table until all of an element is seen",
     {"scrollUntilVisible: Aftercare", "scrollUntilVisible: {element: Slow Burn, direction: UP}"},
     makeScrollUntilVisible},
    {"swipe",
     {{FlowType::points}},
     {{"direction", everyDirection, "across the middle"},
      {"start", {FlowType::point}, "where the finger comes down"},
      {"end", {FlowType::point}, "where it is lifted"},
      {"points", {FlowType::points}, "all the corners of its way"},
      {"steps", {FlowType::number}, "how often it is seen on each line, 20 times when left out"},
      {"duration", {FlowType::number}, "virtual milliseconds from down to up, 400 when left out"},
      {"takeScreenshot", {FlowType::picture}, "a picture, taken before the finger is lifted"}},
     "one finger along a line",
     {"swipe: {direction: LEFT}", "swipe: {start: \"120,400\", end: \"120,90\"}", "swipe: [\"50%,80%\", \"50%,40%\"]"},
     makeSwipe},
    {"inputText",
     {{FlowType::text}},
     {{"text", {FlowType::text}, "what is typed", FlowNeed::required}},
     "key by key into the field that has the keyboard",
     {"inputText: abc"},
     makeInputText},
    {"eraseText",
     {{FlowType::nothing}, {FlowType::number}},
     {{"charactersToErase", {FlowType::number}, "50 when left out"}},
     "takes characters from the end of that field",
     {"eraseText", "eraseText: 3"},
     makeEraseText},
    {"hideKeyboard", {{FlowType::nothing}}, {}, "that field gives the keyboard up", {"hideKeyboard"}, makeHideKeyboard},
};

} // namespace

const FlowCommands& touchCommands() {
    return commands;
}
