#pragma once

#include "platform/layout/LinearExpression.h"

#include <vector>

/// The required equalities, solved by substitution before the simplex method sees anything: most constraints of a
/// screen are such equalities, and only what they leave open is worth a tableau. Variables from `pivots` on are
/// markers: carried along but never solved for. A marker added to each equality shows afterwards which equalities
/// an expression was reduced by.
class Elimination {
public:
    enum class Outcome { added, redundant, contradiction };

    /// A left-over constant within `tolerance` counts as zero.
    Elimination(int variables, int pivots, double tolerance);

    /// Adds the equality expression = 0. On a contradiction (or redundancy) nothing is changed.
    Outcome add(const LinearExpression& expression);
    /// The same expression over the variables that are still open.
    [[nodiscard]] LinearExpression reduce(const LinearExpression& expression) const;
    [[nodiscard]] bool isOpen(int variable) const;

private:
    [[nodiscard]] int pivotOf(const LinearExpression& expression) const;
    void define(int variable, LinearExpression expression);

    std::vector<LinearExpression> m_definitions;
    std::vector<char> m_isDefined;
    std::vector<int> m_defined;
    int m_pivots;
    double m_tolerance;
};
