#include "platform/layout/LinearExpression.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace {

/// Smaller coefficients are what rounding left of a zero.
constexpr double kNoCoefficient = 1e-11;

bool isBefore(const LinearTerm& term, int variable) {
    return term.variable < variable;
}

} // namespace

void LinearExpression::add(int variable, double coefficient) {
    if (std::abs(coefficient) < kNoCoefficient)
        return;
    const auto place = std::lower_bound(terms.begin(), terms.end(), variable, isBefore);
    if (place == terms.end() || place->variable != variable) {
        terms.insert(place, {variable, coefficient});
        return;
    }
    place->coefficient += coefficient;
    if (std::abs(place->coefficient) < kNoCoefficient)
        terms.erase(place);
}

void LinearExpression::add(const LinearExpression& other, double factor) {
    constant += factor * other.constant;
    if (other.terms.size() <= 2) {
        for (const LinearTerm& term : other.terms)
            add(term.variable, factor * term.coefficient);
        return;
    }
    std::vector<LinearTerm> merged;
    merged.reserve(terms.size() + other.terms.size());
    auto mine = terms.cbegin();
    for (const LinearTerm& term : other.terms) {
        while (mine != terms.cend() && mine->variable < term.variable)
            merged.push_back(*mine++);
        LinearTerm sum{term.variable, factor * term.coefficient};
        if (mine != terms.cend() && mine->variable == term.variable)
            sum.coefficient += (mine++)->coefficient;
        if (std::abs(sum.coefficient) >= kNoCoefficient)
            merged.push_back(sum);
    }
    merged.insert(merged.end(), mine, terms.cend());
    terms = std::move(merged);
}

void LinearExpression::scale(double factor) {
    constant *= factor;
    for (LinearTerm& term : terms)
        term.coefficient *= factor;
}

double LinearExpression::coefficientOf(int variable) const {
    const auto place = std::lower_bound(terms.begin(), terms.end(), variable, isBefore);
    return place != terms.end() && place->variable == variable ? place->coefficient : 0;
}

double LinearExpression::evaluate(const std::vector<double>& values) const {
    double sum = constant;
    for (const LinearTerm& term : terms)
        sum += term.coefficient * values[static_cast<std::size_t>(term.variable)];
    return sum;
}
