#include "platform/layout/LayoutRows.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace {

/// Lengths and factors are held within these, so that sums of them keep enough digits. No screen comes near.
constexpr double kLargestLength = 1e9;
constexpr double kLargestFactor = 1e6;
constexpr const char* kNotFinite = "not a finite number";

double within(double value, double limit) {
    return std::clamp(value, -limit, limit);
}

bool isFinite(const CGRect& rect) {
    return std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
           std::isfinite(rect.size.height);
}

} // namespace

LayoutRows::LayoutRows(const std::vector<LayoutItem>& items, const std::vector<LayoutConstraint>& constraints)
    : m_items(items), m_constraints(constraints), m_itemCount(static_cast<int>(items.size())) {
    m_rows.reserve(items.size() * 4 + constraints.size());
    for (int item = 0; item < m_itemCount; ++item)
        addItem(item);
    for (int index = 0; index < static_cast<int>(constraints.size()); ++index)
        addConstraint(index);
}

void LayoutRows::addItem(int index) {
    const LayoutItem& item = m_items[static_cast<std::size_t>(index)];
    if (item.fixedFrame && isFinite(*item.fixedFrame))
        addFixedFrame(index, *item.fixedFrame);
    else if (item.fixedFrame)
        rejectItem(index, "frame");
    addItemRow(index, "width >= 0", {{{width(index), 1}}, 0}, false, 1000);
    addItemRow(index, "height >= 0", {{{height(index), 1}}, 0}, false, 1000);
    if (item.intrinsicWidth) {
        addIntrinsicSize(index, width(index), *item.intrinsicWidth, item.horizontalHugging,
                         item.horizontalCompressionResistance);
    }
    if (item.intrinsicHeight) {
        addIntrinsicSize(index, height(index), *item.intrinsicHeight, item.verticalHugging,
                         item.verticalCompressionResistance);
    }
}

void LayoutRows::addFixedFrame(int index, const CGRect& frame) {
    const int parent = m_items[static_cast<std::size_t>(index)].parent;
    const bool isNested = parent >= 0 && parent < m_itemCount;
    const auto place = [&](int variable, int origin, double length) {
        LinearExpression expression;
        expression.constant = -within(length, kLargestLength);
        expression.add(variable, 1);
        if (isNested)
            expression.add(origin, -1);
        addItemRow(index, "frame", std::move(expression), true, 1000);
    };
    place(x(index), isNested ? x(parent) : -1, frame.origin.x);
    place(y(index), isNested ? y(parent) : -1, frame.origin.y);
    const auto size = [&](int variable, double length) {
        addItemRow(index, "frame", {{{variable, 1}}, -std::clamp(length, 0.0, kLargestLength)}, true, 1000);
    };
    size(width(index), frame.size.width);
    size(height(index), frame.size.height);
}

void LayoutRows::addIntrinsicSize(int index, int variable, double size, double hugging, double resistance) {
    if (!std::isfinite(size) || !std::isfinite(hugging) || !std::isfinite(resistance)) {
        rejectItem(index, "intrinsic size");
        return;
    }
    const double length = within(size, kLargestLength);
    addItemRow(index, "content hugging", {{{variable, -1}}, length}, false, hugging);
    addItemRow(index, "compression resistance", {{{variable, 1}}, -length}, false, resistance);
}

void LayoutRows::addConstraint(int index) {
    const LayoutConstraint& constraint = m_constraints[static_cast<std::size_t>(index)];
    if (const char* reason = whyUnusable(constraint)) {
        const std::string name = constraint.name.empty() ? "constraint " + std::to_string(index) : constraint.name;
        m_conflicts.push_back({index, name, reason, {}});
        return;
    }
    const double sign = constraint.relation == LayoutRelation::lessThanOrEqual ? -1 : 1;
    const double factor = within(constraint.multiplier, kLargestFactor);
    LayoutRow row;
    row.expression.constant = -sign * within(constraint.constant, kLargestLength);
    row.isEquality = constraint.relation == LayoutRelation::equal;
    row.priority = constraint.priority;
    row.constraint = index;
    const bool isComplete = addAttribute(row.expression, constraint.first, constraint.firstAttribute, sign) &&
                            (constraint.second < 0 || addAttribute(row.expression, constraint.second,
                                                                   constraint.secondAttribute, -sign * factor));
    if (isComplete)
        m_rows.push_back(std::move(row));
    else
        m_conflicts.push_back({index, nameOf(row), kNotFinite, {}});
}

const char* LayoutRows::whyUnusable(const LayoutConstraint& constraint) const {
    if (constraint.first < 0 || constraint.first >= m_itemCount || constraint.second >= m_itemCount)
        return "names an item that does not exist";
    if (constraint.firstAttribute == LayoutAttribute::notAnAttribute)
        return "names no attribute";
    if (!std::isfinite(constraint.multiplier) || !std::isfinite(constraint.constant) ||
        !std::isfinite(constraint.priority))
        return kNotFinite;
    return nullptr;
}

/// False when a baseline is not a finite number.
bool LayoutRows::addAttribute(LinearExpression& expression, int item, LayoutAttribute attribute, double factor) const {
    const LayoutItem& source = m_items[static_cast<std::size_t>(item)];
    const auto addBaseline = [&](const std::optional<CGFloat>& baseline) {
        expression.add(y(item), factor);
        if (!baseline)
            expression.add(height(item), factor);
        else
            expression.constant += factor * within(*baseline, kLargestLength);
        return !baseline || std::isfinite(*baseline);
    };
    switch (attribute) {
    case LayoutAttribute::left:
    case LayoutAttribute::leading:
        expression.add(x(item), factor);
        break;
    case LayoutAttribute::right:
    case LayoutAttribute::trailing:
        expression.add(x(item), factor);
        expression.add(width(item), factor);
        break;
    case LayoutAttribute::top:
        expression.add(y(item), factor);
        break;
    case LayoutAttribute::bottom:
        expression.add(y(item), factor);
        expression.add(height(item), factor);
        break;
    case LayoutAttribute::width:
        expression.add(width(item), factor);
        break;
    case LayoutAttribute::height:
        expression.add(height(item), factor);
        break;
    case LayoutAttribute::centerX:
        expression.add(x(item), factor);
        expression.add(width(item), factor / 2);
        break;
    case LayoutAttribute::centerY:
        expression.add(y(item), factor);
        expression.add(height(item), factor / 2);
        break;
    case LayoutAttribute::firstBaseline:
        return addBaseline(source.firstBaseline);
    case LayoutAttribute::lastBaseline:
        return addBaseline(source.lastBaseline);
    case LayoutAttribute::notAnAttribute:
        break;
    }
    return true;
}

void LayoutRows::addItemRow(int item, const char* role, LinearExpression expression, bool isEquality, double priority) {
    m_rows.push_back({std::move(expression), isEquality, priority, -1, item, role});
}

void LayoutRows::rejectItem(int item, const char* role) {
    LayoutRow row;
    row.item = item;
    row.itemRole = role;
    m_conflicts.push_back({-1, nameOf(row), kNotFinite, {}});
}

std::string LayoutRows::nameOf(const LayoutRow& row) const {
    if (row.constraint < 0) {
        const std::string& name = m_items[static_cast<std::size_t>(row.item)].name;
        return (name.empty() ? "item " + std::to_string(row.item) : name) + " " + row.itemRole;
    }
    const std::string& name = m_constraints[static_cast<std::size_t>(row.constraint)].name;
    return name.empty() ? "constraint " + std::to_string(row.constraint) : name;
}

double LayoutRows::largestConstant() const {
    double largest = 0;
    for (const LayoutRow& row : m_rows)
        largest = std::max(largest, std::abs(row.expression.constant));
    return largest;
}
