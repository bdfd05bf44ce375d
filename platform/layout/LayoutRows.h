#pragma once

#include "platform/layout/LayoutSystem.h"
#include "platform/layout/LinearExpression.h"

#include <string>
#include <vector>

/// One linear requirement or wish over the items' variables.
struct LayoutRow {
    LinearExpression expression;
    LinearRelation relation = LinearRelation::zero;
    double priority = 1000;
    int constraint = -1; ///< index of the constraint it stands for; -1 when it comes from an item
    int item = -1;
    const char* itemRole = ""; ///< what the item asks for, for reports

    [[nodiscard]] bool isRequired() const { return priority >= 1000; }
};

/// Writes items and constraints as rows. Made and used up within one call of `solveLayout`.
class LayoutRows {
public:
    LayoutRows(const std::vector<LayoutItem>& items, const std::vector<LayoutConstraint>& constraints);

    /// Sizes are numbered before positions: equations are solved for positions, and inequalities speak of sizes.
    [[nodiscard]] static int size(int item, LayoutAxis axis) { return 2 * item + static_cast<int>(axis); }
    [[nodiscard]] int position(int item, LayoutAxis axis) const { return size(m_itemCount + item, axis); }
    [[nodiscard]] int variableCount() const { return 4 * m_itemCount; }

    [[nodiscard]] const std::vector<LayoutRow>& rows() const { return m_rows; }
    /// What had to be left out already here: numbers that are none, items that do not exist.
    [[nodiscard]] const std::vector<LayoutConflict>& conflicts() const { return m_conflicts; }
    [[nodiscard]] std::string nameOf(const LayoutRow& row) const;
    /// Lengths that differ by no more than this are equal.
    [[nodiscard]] double tolerance() const;

private:
    [[nodiscard]] bool hasItem(int index) const { return index >= 0 && index < m_itemCount; }
    void addItem(int index, const LayoutItem& item);
    void addFixedFrame(int index, const CGRect& frame);
    void addContent(int index, LayoutAxis axis, const LayoutContent& content);
    void addConstraint(int index, const LayoutConstraint& constraint);
    void reject(const LayoutRow& row, const char* reason);
    [[nodiscard]] const char* whyUnusable(const LayoutConstraint& constraint) const;
    void addAttribute(LinearExpression& expression, int item, LayoutAttribute attribute, double factor) const;
    [[nodiscard]] std::optional<CGFloat> baselineOf(int item, LayoutAttribute attribute) const;

    const std::vector<LayoutItem>& m_items;
    const std::vector<LayoutConstraint>& m_constraints;
    int m_itemCount;
    std::vector<LayoutRow> m_rows;
    std::vector<LayoutConflict> m_conflicts;
};
