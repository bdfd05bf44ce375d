#include "simulator/live/ConstraintState.h"

#include "platform/runtime/ClassRegistry.h"
#include "platform/uikit/view/UIView.h"
#include "platform/uikit/view/ViewSystem.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace {

const char* nameOf(LayoutAttribute attribute) {
    constexpr std::array names{"left",   "right",   "top",     "bottom",        "leading",      "trailing", "width",
                               "height", "centerX", "centerY", "firstBaseline", "lastBaseline", ""};
    static_assert(names.size() == static_cast<std::size_t>(LayoutAttribute::notAnAttribute) + 1);
    return names.at(static_cast<std::size_t>(attribute));
}

std::string numberText(double number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%g", number);
    return text.data();
}

std::string endText(const LayoutEnd& end) {
    const std::shared_ptr<UIView> view = end.view.lock();
    if (!view) {
        return "";
    }
    const std::string& identifier = view->accessibilityIdentifier();
    const char* guide = end.guide == LayoutGuide::view      ? ""
                        : end.guide == LayoutGuide::margins ? ".margins"
                                                            : ".safeArea";
    return (identifier.empty() ? classNameOf(*view) : identifier) + guide + "." + nameOf(end.attribute);
}

std::string termText(const NSLayoutConstraint& constraint) {
    const double constant = constraint.constant();
    if (constraint.second().attribute == LayoutAttribute::notAnAttribute) {
        return numberText(constant);
    }
    const std::string factor = constraint.multiplier() == 1 ? "" : numberText(constraint.multiplier()) + " * ";
    const std::string distance = constant == 0 ? "" : (constant < 0 ? " - " : " + ") + numberText(std::abs(constant));
    return factor + endText(constraint.second()) + distance;
}

const char* nameOf(LayoutRelation relation) {
    return relation == LayoutRelation::equal ? " = " : relation == LayoutRelation::lessThanOrEqual ? " ≤ " : " ≥ ";
}

bool isRequired(const NSLayoutConstraint& constraint) {
    return constraint.priority() >= UILayoutPriorityRequired;
}

std::optional<CGFloat> baselineOf(const UIView& view, LayoutAttribute attribute) {
    return attribute == LayoutAttribute::firstBaseline  ? view.firstBaseline(view.bounds().size)
           : attribute == LayoutAttribute::lastBaseline ? view.lastBaseline(view.bounds().size)
                                                        : std::nullopt;
}

/// In the window's coordinates; 0 without a view.
CGFloat valueOf(const LayoutEnd& end) {
    const std::shared_ptr<UIView> view = end.view.lock();
    if (!view) {
        return 0;
    }
    const CGRect frame = view->convertRectToView(view->bounds(), nullptr);
    if (const std::optional<CGFloat> baseline = baselineOf(*view, end.attribute)) {
        return frame.minY() + *baseline;
    }
    const LayoutAttribute attribute = onThisPhone(end.attribute);
    const auto [axis, positions, sizes] = measureOf(attribute);
    const bool isHorizontal = axis == LayoutAxis::horizontal;
    const CGFloat value = positions * (isHorizontal ? frame.minX() : frame.minY()) +
                          sizes * (isHorizontal ? frame.size.width : frame.size.height) +
                          guideOffset(*view, end.guide, attribute);
    return attribute == end.attribute ? value : -value;
}

} // namespace

std::string describe(const NSLayoutConstraint& constraint) {
    return endText(constraint.first()) + nameOf(constraint.relation()) + termText(constraint) +
           (isRequired(constraint) ? "" : " (priority " + numberText(constraint.priority()) + ")");
}

const char* stateOf(const NSLayoutConstraint& constraint) {
    constexpr CGFloat rounding = 1; // frames stand on device pixels
    const CGFloat excess =
        valueOf(constraint.first()) - (constraint.multiplier() * valueOf(constraint.second()) + constraint.constant());
    const bool isKept = constraint.relation() == LayoutRelation::equal             ? std::abs(excess) <= rounding
                        : constraint.relation() == LayoutRelation::lessThanOrEqual ? excess <= rounding
                                                                                   : excess >= -rounding;
    return isKept ? "satisfied" : isRequired(constraint) ? "contradicting" : "given up";
}
