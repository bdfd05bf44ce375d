#pragma once

#include "platform/layout/LinearExpression.h"

#include <cstddef>
#include <vector>

/// Equations, inequalities and wishes over unknowns, after Badros, Borning and Stuckey: "The Cassowary Linear
/// Arithmetic Constraint Solving Algorithm", ACM TOCHI 8(4), 2001. A variable is either a column, and stands at zero,
/// or has a row that tells what it equals over other variables. Two things differ from the paper. Priorities are not
/// weights of one objective: the least cost of each is made sure of before the next is looked at, which is exact. And a
/// wish is one variable whose cost bends at zero, not the difference of two. Variables that rows tie together are a
/// component; whatever is done in one costs nothing in the others.
class Simplex {
public:
    enum class Equations { forgotten, marked }; ///< marked ones stay visible in the rows that rest on them

    /// Variables 0 ... unknowns - 1 may take any value and stand at zero; `rows` more wait to be required. Lengths that
    /// differ by no more than `tolerance` are equal.
    Simplex(int unknowns, int rows, double tolerance, Equations equations);

    /// Holds the variable, which equals the expression, where it shall be. False when others prevent that: its row then
    /// is a sum of these. All equations come before anything else.
    [[nodiscard]] bool require(int variable, const LinearExpression& expression, LinearRelation relation);
    /// Every unit that the expression is away from where it shall be costs one.
    void wish(const LinearExpression& expression, LinearRelation relation, double priority);
    /// Moves to the least cost, priority after priority, and stays with what is as cheap.
    void fulfilWishes();

    /// What the variable equals; a column has no terms.
    [[nodiscard]] const LinearExpression& row(int variable);
    /// False only when the variable has one value at all points that are left.
    [[nodiscard]] bool mayMove(int variable) { return movableColumn(variable) >= 0; }
    /// True exactly when the variable has one value at all points that are left. May move to another of them.
    [[nodiscard]] bool isDetermined(int variable);
    /// How many terms and variables were looked at so far: what all this costs, on any machine.
    [[nodiscard]] std::size_t work() const { return m_work; }

private:
    enum class Rule { steepest, first };
    struct Variable {
        int parent = 0; // in the tree that stands for the component
        int next = 0;   // in the circle of the component
        bool hasRow = false;
        bool mayRise = true; // may be above zero
        bool mayFall = true; // may be below zero
        bool isAbove = true; // the side of zero whose cost counts, while it has a row
        double costBelow = 0;
        double costAbove = 0;
        double slope = 0; // of the total cost, while it is a column
        LinearExpression row;
    };
    struct Wish {
        int variable = -1;
        LinearRelation relation = LinearRelation::zero;
        double priority = 0;
    };
    struct Move {
        int column = -1;
        int direction = 0;
    };

    [[nodiscard]] Variable& at(int variable) { return m_variables[static_cast<std::size_t>(variable)]; }
    int addVariable();
    [[nodiscard]] int movableColumn(int variable);
    [[nodiscard]] bool equate(int variable, const LinearExpression& expression);
    [[nodiscard]] LinearExpression reduced(const LinearExpression& expression);
    void setRow(int variable, const LinearExpression& expression);
    [[nodiscard]] int componentOf(int variable);
    bool minimise(int variable);
    void gatherMembers(int variable);
    void computeSlopes();
    [[nodiscard]] Move chooseMove(Rule rule);
    [[nodiscard]] int chooseLeaving(const Move& move);
    void pivot(int leaving, int column);
    void freezeOptimum();

    int m_unknowns;
    double m_tolerance;
    Equations m_equations;
    std::vector<Variable> m_variables;
    std::vector<Wish> m_wishes;
    std::vector<int> m_members; // of the component at work
    std::size_t m_work = 0;
};
