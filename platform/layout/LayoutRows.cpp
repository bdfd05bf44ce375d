#include "platform/layout/LayoutRows.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace {

using enum LayoutAxis;

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

/// Lengths and factors are held within these, so that sums of them keep enough digits. No screen comes near.
constexpr double largestLength = 1e9;
constexpr double largestFactor = 1e6;
constexpr double required = 1000;
constexpr const char* notFinite = "not a finite number";

double within(double value, double limit) {
    return std::clamp(value, -limit, limit);
}

bool areFinite(std::initializer_list<double> numbers) {
    return std::all_of(numbers.begin(), numbers.end(), [](double number) { return std::isfinite(number); });
}

} // namespace

LayoutRows::LayoutRows(const std::vector<LayoutItem>& items, const std::vector<LayoutConstraint>& constraints)
    : m_items(items), m_constraints(constraints), m_itemCount(static_cast<int>(items.size())) {
    m_rows.reserve(items.size() * 4 + constraints.size());
    for (std::size_t index = 0; index < items.size(); ++index) {
        addItem(static_cast<int>(index), items[index]);
    }
    for (std::size_t index = 0; index < constraints.size(); ++index) {
        addConstraint(static_cast<int>(index), constraints[index]);
    }
}

void LayoutRows::addItem(int index, const LayoutItem& item) {
    if (item.fixedFrame) {
        addFixedFrame(index, *item.fixedFrame);
    }
    for (const LayoutAxis axis : {horizontal, vertical}) {
        const char* role = axis == horizontal ? "width >= 0" : "height >= 0";
        m_rows.push_back({{{{size(index, axis), 1}}, 0}, LinearRelation::zeroOrMore, required, -1, index, role});
    }
    for (const LayoutAxis axis : {horizontal, vertical}) {
        addContent(index, axis, item.along(axis));
    }
}

void LayoutRows::addFixedFrame(int index, const CGRect& frame) {
    LayoutRow row{{}, LinearRelation::zero, required, -1, index, "frame"};
    if (!areFinite({frame.origin.x, frame.origin.y, frame.size.width, frame.size.height})) {
        reject(row, notFinite);
        return;
    }
    const int parent = m_items[at(index)].parent;
    for (const LayoutAxis axis : {horizontal, vertical}) {
        const double place = axis == horizontal ? frame.origin.x : frame.origin.y;
        const double length = axis == horizontal ? frame.size.width : frame.size.height;
        row.expression = {{{position(index, axis), 1}}, -within(place, largestLength)};
        if (hasItem(parent)) {
            row.expression.add(position(parent, axis), -1);
        }
        m_rows.push_back(row);
        row.expression = {{{size(index, axis), 1}}, -std::clamp(length, 0.0, largestLength)};
        m_rows.push_back(row);
    }
}

void LayoutRows::addContent(int index, LayoutAxis axis, const LayoutContent& content) {
    if (!content.length) {
        return;
    }
    const int variable = size(index, axis);
    const double natural = within(*content.length, largestLength);
    LayoutRow upper{
        {{{variable, -1}}, natural}, LinearRelation::zeroOrMore, content.hugging, -1, index, "content hugging"};
    LayoutRow lower{{{{variable, 1}}, -natural}, LinearRelation::zeroOrMore, content.compressionResistance, -1, index,
                    "compression resistance"};
    if (areFinite({*content.length, content.hugging, content.compressionResistance})) {
        m_rows.push_back(std::move(upper));
        m_rows.push_back(std::move(lower));
    } else {
        upper.itemRole = "intrinsic size";
        reject(upper, notFinite);
    }
}

void LayoutRows::addConstraint(int index, const LayoutConstraint& constraint) {
    const bool isEquality = constraint.relation == LayoutRelation::equal;
    LayoutRow row{{}, isEquality ? LinearRelation::zero : LinearRelation::zeroOrMore, constraint.priority, index};
    if (const char* reason = whyUnusable(constraint)) {
        reject(row, reason);
        return;
    }
    const double sign = constraint.relation == LayoutRelation::lessThanOrEqual ? -1 : 1;
    const double factor = -sign * within(constraint.multiplier, largestFactor);
    row.expression.terms.reserve(4); // of two ends
    row.expression.constant = -sign * within(constraint.constant, largestLength);
    addAttribute(row.expression, constraint.first, constraint.firstAttribute, sign);
    addAttribute(row.expression, constraint.second, constraint.secondAttribute, factor);
    m_rows.push_back(std::move(row));
}

const char* LayoutRows::whyUnusable(const LayoutConstraint& constraint) const {
    if (!hasItem(constraint.first) || constraint.second >= m_itemCount) {
        return "names an item that does not exist";
    }
    if (constraint.firstAttribute == LayoutAttribute::notAnAttribute) {
        return "names no attribute";
    }
    const bool isUsable = areFinite({constraint.multiplier, constraint.constant, constraint.priority,
                                     baselineOf(constraint.first, constraint.firstAttribute).value_or(0),
                                     baselineOf(constraint.second, constraint.secondAttribute).value_or(0)});
    return isUsable ? nullptr : notFinite;
}

/// Below the item's top. Nothing where it is the bottom edge, and for other attributes.
std::optional<CGFloat> LayoutRows::baselineOf(int item, LayoutAttribute attribute) const {
    if (item < 0 || !isBaseline(attribute)) {
        return std::nullopt;
    }
    const LayoutItem& source = m_items[at(item)];
    return attribute == LayoutAttribute::firstBaseline ? source.firstBaseline : source.lastBaseline;
}

void LayoutRows::addAttribute(LinearExpression& expression, int item, LayoutAttribute attribute, double factor) const {
    if (item < 0) {
        return;
    }
    const auto [axis, positions, sizes] = measureOf(attribute);
    const std::optional<CGFloat> baseline = baselineOf(item, attribute);
    expression.add(position(item, axis), factor * positions);
    expression.add(size(item, axis), baseline ? 0 : factor * sizes);
    expression.constant += factor * within(baseline.value_or(0), largestLength);
}

std::string LayoutRows::nameOf(const LayoutRow& row) const {
    const std::string& name = row.constraint < 0 ? m_items[at(row.item)].name : m_constraints[at(row.constraint)].name;
    if (row.constraint < 0) {
        return (name.empty() ? "item " + std::to_string(row.item) : name) + " " + row.itemRole;
    }
    return name.empty() ? "constraint " + std::to_string(row.constraint) : name;
}

void LayoutRows::reject(const LayoutRow& row, const char* reason) {
    m_conflicts.push_back({row.constraint, nameOf(row), reason, {}});
}

double LayoutRows::tolerance() const {
    double largest = 1000;
    for (const LayoutRow& row : m_rows) {
        largest = std::max(largest, std::abs(row.expression.constant));
    }
    return 1e-9 * largest;
}
