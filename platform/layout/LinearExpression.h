#pragma once

#include <vector>

struct LinearTerm {
    int variable = 0;
    double coefficient = 0;
};

/// A sum of variables times coefficients, plus a constant: what every constraint becomes. A value; the terms are kept
/// in order of their variables and none of them is zero.
struct LinearExpression {
    std::vector<LinearTerm> terms;
    double constant = 0;

    void add(int variable, double coefficient);
    void add(const LinearExpression& other, double factor);
    [[nodiscard]] double coefficientOf(int variable) const;
    /// Reads the expression as an equation, expression = 0, and becomes what `variable` (one of the terms) equals.
    void solveFor(int variable);
};

/// What an expression shall be.
enum class LinearRelation { zero, zeroOrMore };
