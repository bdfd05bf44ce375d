#include "simulator/live/RecordedGesture.h"

#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "simulator/conversation/ViewTree.h"

#include <boost/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr CGFloat tapRadius = 10; // a finger that goes no further taps
constexpr CGFloat detour = 30;    // that takes hold of a list for sure

CGFloat distance(CGPoint one, CGPoint other) {
    return std::hypot(one.x - other.x, one.y - other.y);
}

/// The control or row that takes a touch at this place.
const UIView* partAt(UIWindow& window, CGPoint place) {
    for (const UIView* at = window.hitTestWithEvent(place, nullptr).get(); at != nullptr; at = at->superview()) {
        if (dynamic_cast<const UIControl*>(at) != nullptr || dynamic_cast<const UITableViewCell*>(at) != nullptr) {
            return at;
        }
    }
    return nullptr;
}

/// Texts first: they say most to a reader.
void collectNames(const UIView& view, std::vector<Selector>& texts, std::vector<Selector>& identifiers) {
    for (std::string text : textsOf(view)) {
        std::replace(text.begin(), text.end(), '\n', ' ');
        texts.push_back({.text = std::move(text), .id = {}, .index = {}});
    }
    if (!view.accessibilityIdentifier().empty()) {
        identifiers.push_back({.text = {}, .id = view.accessibilityIdentifier(), .index = {}});
    }
    for (const std::shared_ptr<UIView>& subview : view.subviews()) {
        collectNames(*subview, texts, identifiers);
    }
}

/// A name by which a flow would touch this very part.
std::optional<Selector> nameOf(UIWindow& window, const UIView& part) {
    std::vector<Selector> names;
    std::vector<Selector> identifiers;
    collectNames(part, names, identifiers);
    names.insert(names.end(), identifiers.begin(), identifiers.end());
    const auto leadsThere = [&](const Selector& name) {
        const std::optional<ScreenElement> element = ElementSearch(window).find(name);
        const std::optional<CGPoint> point = element ? element->pointToTouch() : std::nullopt;
        return point && partAt(window, *point) == &part;
    };
    const auto found = std::find_if(names.begin(), names.end(), leadsThere);
    return found == names.end() ? std::nullopt : std::optional(*found);
}

std::string written(CGFloat number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.4f", number);
    std::string digits = text.data();
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') {
        digits.pop_back();
    }
    return digits == "-0" ? "0" : digits;
}

std::string written(CGPoint point) {
    return '"' + written(point.x) + "," + written(point.y) + '"';
}

std::string written(const std::vector<CGPoint>& points) {
    std::string list;
    for (const CGPoint point : points) {
        list += (list.empty() ? "" : ", ") + written(point);
    }
    return "[" + list + "]";
}

RecordedStep swipe(const std::vector<CGPoint>& points, const std::string& steps, SwipeTime time) {
    const std::string options = steps + (time == SwipeTime::none ? ", duration: 0" : "");
    return {"swipe", options.empty() ? written(points) : "{points: " + written(points) + options + "}"};
}

/// A list only knows how far the finger is from where it began: where it turns is enough, and where it was farthest.
std::vector<CGPoint> turningPoints(const std::vector<CGPoint>& points) {
    const auto farthest = std::max_element(points.begin(), points.end(), [&](CGPoint one, CGPoint other) {
        return distance(one, points.front()) < distance(other, points.front());
    });
    std::vector<CGPoint> kept{points.front()};
    for (auto point = points.begin() + 1; point + 1 < points.end(); ++point) {
        const bool turns = (point->y - kept.back().y) * ((point + 1)->y - point->y) < 0;
        if (turns || point == farthest) {
            kept.push_back(*point);
        }
    }
    kept.push_back(points.back());
    return kept;
}

} // namespace

std::string written(const std::string& text) {
    return boost::json::serialize(boost::json::value(text));
}

std::string written(const std::vector<std::string>& texts) {
    std::string list;
    for (const std::string& text : texts) {
        list += (list.empty() ? "" : ", ") + written(text);
    }
    return "[" + list + "]";
}

std::string written(const Selector& selector) {
    return selector.text ? written(*selector.text) : "{id: " + written(selector.id.value_or("")) + "}";
}

UIScrollView* listUnder(UIWindow& window, CGPoint place) {
    for (UIView* at = window.hitTestWithEvent(place, nullptr).get(); at != nullptr; at = at->superview()) {
        if (dynamic_cast<UIControl*>(at) != nullptr) {
            return nullptr;
        }
        if (auto* list = dynamic_cast<UIScrollView*>(at)) {
            return list;
        }
    }
    return nullptr;
}

RecordedStep recordedGesture(UIWindow& window, const std::vector<CGPoint>& points, bool scrolls, SwipeTime time) {
    const bool taps = std::all_of(points.begin(), points.end(),
                                  [&](CGPoint point) { return distance(point, points.front()) <= tapRadius; });
    const UIView* part = taps ? partAt(window, points.front()) : nullptr;
    if (part != nullptr && partAt(window, points.back()) == part) {
        if (const std::optional<Selector> name = nameOf(window, *part)) {
            return {"tapOn", written(*name)};
        }
    }
    if (points.size() == 1 || (taps && scrolls)) {
        return {"tapOn", "{point: " + written(points.front()) + "}"};
    }
    return scrolls ? swipe(turningPoints(points), "", time) : swipe(points, ", steps: 1", time);
}

std::optional<RecordedStep> recordedScroll(UIWindow& window, const UIScrollView& list, CGFloat down, SwipeTime time) {
    constexpr int grid = 9;
    const CGRect seen = list.convertRectToView(list.bounds(), nullptr).intersection(window.bounds());
    for (int i = 0; i < grid * grid; ++i) {
        const CGPoint start{std::round(seen.minX() + seen.size.width * (i % grid + 0.5) / grid),
                            std::round(seen.minY() + seen.size.height * (i / grid + 0.5) / grid)};
        if (listUnder(window, start) == &list) {
            std::vector<CGPoint> way{start};
            if (std::abs(down) <= tapRadius) {
                way.push_back({start.x, start.y - std::copysign(detour, down)});
            }
            way.push_back({start.x, start.y - down});
            return swipe(way, "", time);
        }
    }
    return std::nullopt;
}
