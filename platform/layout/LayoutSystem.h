#pragma once

#include "platform/foundation/Geometry.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// Layout as a pure function: rectangles and linear constraints in, frames out. It knows no views; whoever owns them
/// describes them as items, turns margins and safe areas into constants or further items, and calls `solveLayout`.
/// Lengths are in points, y grows downwards, text runs left to right (leading is left).

enum class LayoutAttribute {
    left,
    right,
    top,
    bottom,
    leading,
    trailing,
    width,
    height,
    centerX,
    centerY,
    firstBaseline,
    lastBaseline,
    notAnAttribute
};

enum class LayoutAxis { horizontal = 0, vertical = 1 };

/// An attribute as so many times the position and so many times the size along an axis. A baseline counts as the bottom
/// edge, no attribute as nothing.
struct LayoutMeasure {
    LayoutAxis axis;
    double positions;
    double sizes;
};
[[nodiscard]] LayoutMeasure measureOf(LayoutAttribute attribute);
[[nodiscard]] constexpr bool isBaseline(LayoutAttribute attribute) {
    return attribute == LayoutAttribute::firstBaseline || attribute == LayoutAttribute::lastBaseline;
}

enum class LayoutRelation { lessThanOrEqual = -1, equal = 0, greaterThanOrEqual = 1 };

/// What the content of an item would like along one axis.
struct LayoutContent {
    std::optional<CGFloat> length{};    ///< the intrinsic size; absent where there is no wish
    double hugging = 250;               ///< priority of "not longer than that"
    double compressionResistance = 750; ///< priority of "not shorter than that"
    bool isOpen = false;                ///< of a width: there is a wish, but it has not been measured

    [[nodiscard]] double strongestWish() const { return std::max(hugging, compressionResistance); }
};

/// A rectangle to be placed. Width and height are never negative.
struct LayoutItem {
    std::string name{}; ///< for reports
    int parent = -1;    ///< index of the item whose origin `fixedFrame` is relative to; -1 is the system's origin
    std::optional<CGRect> fixedFrame{}; ///< a required frame (the root, views placed by autoresizing)
    LayoutContent width{};
    LayoutContent height{};
    std::optional<CGFloat> firstBaseline{}; ///< distance from the item's top; absent means the bottom edge
    std::optional<CGFloat> lastBaseline{};

    [[nodiscard]] const LayoutContent& along(LayoutAxis axis) const {
        return axis == LayoutAxis::horizontal ? width : height;
    }
};

/// first.attribute RELATION multiplier * second.attribute + constant; without a second item just RELATION constant.
/// Priority 1000 is required. Lower ones are kept as well as possible: a higher priority is never given up for any
/// number of lower ones, within one priority the sum of the absolute violations is least.
struct LayoutConstraint {
    int first = -1;
    LayoutAttribute firstAttribute = LayoutAttribute::notAnAttribute;
    LayoutRelation relation = LayoutRelation::equal;
    int second = -1;
    LayoutAttribute secondAttribute = LayoutAttribute::notAnAttribute;
    double multiplier = 1;
    double constant = 0;
    double priority = 1000;
    std::string name{}; ///< for reports
};

/// Something that was left out so that the rest could be solved.
struct LayoutConflict {
    int constraint = -1;             ///< index of the constraint left out; -1 when it belongs to an item
    std::string name{};              ///< its name
    std::string reason;              ///< "contradicts other required constraints", "not a finite number", ...
    std::vector<std::string> others; ///< names of the constraints it contradicts
};

/// An item whose frame the constraints do not determine; true marks what can still move. It gets a frame all the same.
struct LayoutAmbiguity {
    int item = -1;
    std::string name{};
    bool x = false;
    bool y = false;
    bool width = false;
    bool height = false;
};

struct LayoutResult {
    std::vector<CGRect> frames; ///< one for each item, in the system's coordinates
    /// One for each item: whether its width is what it is without its intrinsic size. Required equalities determine it
    /// alone, or, of an open width, all that is stronger than the wishes of any open width.
    std::vector<bool> givenWidths;
    std::vector<LayoutConflict> conflicts;
    std::vector<LayoutAmbiguity> ambiguities;
    std::size_t work = 0; ///< terms and variables looked at: what the solution cost, the same on any machine
};

[[nodiscard]] LayoutResult solveLayout(const std::vector<LayoutItem>& items,
                                       const std::vector<LayoutConstraint>& constraints);
