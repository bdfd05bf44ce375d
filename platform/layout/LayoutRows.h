#pragma once

#include "platform/layout/LayoutSystem.h"
#include "platform/layout/LinearExpression.h"

#include <string>
#include <vector>

/// One linear requirement or wish over the items' variables: expression = 0, or expression >= 0.
struct LayoutRow {
    LinearExpression expression;
    bool isEquality = false;
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

    /// Sizes are numbered before positions (see Elimination).
    [[nodiscard]] int x(int item) const { return 2 * (m_itemCount + item); }
    [[nodiscard]] int y(int item) const { return x(item) + 1; }
    [[nodiscard]] static int width(int item) { return 2 * item; }
    [[nodiscard]] static int height(int item) { return 2 * item + 1; }
    [[nodiscard]] int variableCount() const { return 4 * m_itemCount; }

    [[nodiscard]] const std::vector<LayoutRow>& rows() const { return m_rows; }
    /// What had to be left out already here: numbers that are none, items that do not exist.
    [[nodiscard]] const std::vector<LayoutConflict>& conflicts() const { return m_conflicts; }
    [[nodiscard]] std::string nameOf(const LayoutRow& row) const;
    [[nodiscard]] double largestConstant() const;

private:
    void addItem(int index);
    void addFixedFrame(int index, const CGRect& frame);
    void addIntrinsicSize(int index, int variable, double size, double hugging, double resistance);
    void addConstraint(int index);
    [[nodiscard]] const char* whyUnusable(const LayoutConstraint& constraint) const;
    [[nodiscard]] bool addAttribute(LinearExpression& expression, int item, LayoutAttribute attribute,
                                    double factor) const;
    void addItemRow(int item, const char* role, LinearExpression expression, bool isEquality, double priority);
    void rejectItem(int item, const char* role);

    const std::vector<LayoutItem>& m_items;
    const std::vector<LayoutConstraint>& m_constraints;
    int m_itemCount;
    std::vector<LayoutRow> m_rows;
    std::vector<LayoutConflict> m_conflicts;
};
