#include "platform/layout/Elimination.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

Elimination::Elimination(int variables, int pivots, double tolerance)
    : m_definitions(static_cast<std::size_t>(variables)), m_isDefined(static_cast<std::size_t>(variables), 0),
      m_pivots(pivots), m_tolerance(tolerance) {}

bool Elimination::isOpen(int variable) const {
    return m_isDefined[static_cast<std::size_t>(variable)] == 0;
}

LinearExpression Elimination::reduce(const LinearExpression& expression) const {
    LinearExpression result;
    result.constant = expression.constant;
    result.terms.reserve(expression.terms.size());
    for (const LinearTerm& term : expression.terms) {
        if (isOpen(term.variable))
            result.terms.push_back(term);
    }
    for (const LinearTerm& term : expression.terms) {
        if (!isOpen(term.variable))
            result.add(m_definitions[static_cast<std::size_t>(term.variable)], term.coefficient);
    }
    return result;
}

int Elimination::pivotOf(const LinearExpression& expression) const {
    double largest = 0;
    for (const LinearTerm& term : expression.terms) {
        if (term.variable < m_pivots)
            largest = std::max(largest, std::abs(term.coefficient));
    }
    // The last of the large ones: positions are numbered after sizes, and the sizes are what the inequalities are
    // about.
    int pivot = -1;
    for (const LinearTerm& term : expression.terms) {
        if (term.variable < m_pivots && std::abs(term.coefficient) >= largest / 2)
            pivot = term.variable;
    }
    return pivot;
}

Elimination::Outcome Elimination::add(const LinearExpression& expression) {
    LinearExpression row = reduce(expression);
    const int pivot = pivotOf(row);
    if (pivot < 0)
        return std::abs(row.constant) <= m_tolerance ? Outcome::redundant : Outcome::contradiction;
    const double coefficient = row.coefficientOf(pivot);
    row.add(pivot, -coefficient);
    row.scale(-1 / coefficient);
    define(pivot, std::move(row));
    return Outcome::added;
}

void Elimination::define(int variable, LinearExpression expression) {
    for (const int other : m_defined) {
        LinearExpression& definition = m_definitions[static_cast<std::size_t>(other)];
        const double coefficient = definition.coefficientOf(variable);
        if (coefficient == 0)
            continue;
        definition.add(variable, -coefficient);
        definition.add(expression, coefficient);
    }
    m_definitions[static_cast<std::size_t>(variable)] = std::move(expression);
    m_isDefined[static_cast<std::size_t>(variable)] = 1;
    m_defined.push_back(variable);
}
