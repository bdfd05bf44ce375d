#pragma once

#include "platform/layout/LinearExpression.h"

#include <cstddef>
#include <vector>

/// Linear programming on a dense tableau, one level of cost after the other, after Badros, Borning and Stuckey: "The
/// Cassowary Linear Arithmetic Constraint Solving Algorithm", ACM TOCHI 8(4), 2001. Two things differ. Levels are not
/// weights of one objective: the optimum of each is frozen before the next is looked at, which is exact. And a row
/// is one variable whose cost bends at zero, not the difference of two, so the tableau has half the columns.
class Simplex {
public:
    /// The unknowns 0 ... unknowns - 1 may take any value and start at zero.
    explicit Simplex(int unknowns);

    /// A new variable that always equals the expression (over unknowns); free at first.
    int addRow(const LinearExpression& expression);
    /// Makes the variable of the latest row at least zero. When that is impossible the row is taken out again and the
    /// answer is false; `blocking` then is the row as a sum of the variables (each at least zero) that prevent it.
    [[nodiscard]] bool require(int variable, LinearExpression& blocking);
    /// Cost per unit below and above zero; their sum is not negative.
    void setCost(int variable, double below, double above);
    /// Moves to the least total cost; false when there is none (the cost falls for ever).
    bool minimise();
    /// From now on only points that are as cheap as this one are visited; all costs become zero.
    void freezeOptimum();

    [[nodiscard]] double value(int variable) const;
    /// True when no point that is left differs from this one.
    [[nodiscard]] bool isFixed() const { return m_columns.empty(); }
    /// True when the expression has one value on all points that are left. May move to another of them.
    [[nodiscard]] bool isDetermined(const LinearExpression& expression);

private:
    struct Variable {
        int row = -1;        ///< where it is basic
        int column = -1;     ///< where it is not; neither when it stays zero for good
        bool mayRise = true; ///< may be above zero
        bool mayFall = true; ///< may be below zero
        bool isAbove = true; ///< the side of zero whose cost counts while it is basic
        double costBelow = 0;
        double costAbove = 0;
    };
    struct Move {
        int column = -1;
        int direction = 0;
        double slope = 0;
    };
    struct Crossing {
        double distance = 0;
        double rate = 0;
        int row = -1;
    };

    [[nodiscard]] Variable& basic(int row) {
        return m_variables[static_cast<std::size_t>(m_rows[static_cast<std::size_t>(row)])];
    }
    [[nodiscard]] double* coefficients(int row) { return m_cells.data() + static_cast<std::size_t>(row) * m_stride; }
    [[nodiscard]] const double* coefficients(int row) const {
        return m_cells.data() + static_cast<std::size_t>(row) * m_stride;
    }
    [[nodiscard]] int rowCount() const { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] int columnCount() const { return static_cast<int>(m_columns.size()); }

    void chooseSides();
    void computeSlopes();
    [[nodiscard]] Move chooseMove(bool first) const;
    [[nodiscard]] int chooseLeaving(const Move& move);
    void pivot(int row, const Move& move);
    void removeColumn(int column);
    void removeLatestRow();
    void clearCosts();

    std::size_t m_stride;
    std::vector<double> m_cells;     ///< row by row: what a unit of each column's variable adds to the row's variable
    std::vector<double> m_constants; ///< the value of each row's variable
    std::vector<int> m_rows;         ///< the variable of each row
    std::vector<int> m_columns;      ///< the variable of each column; all of these are zero at this point
    std::vector<Variable> m_variables;
    std::vector<double> m_slopes;
    std::vector<Crossing> m_crossings;
};
