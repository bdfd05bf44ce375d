#include "platform/layout/LinearExpression.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Smaller coefficients are what rounding left of a zero.
constexpr double noCoefficient = 1e-11;
/// Up to so many terms are inserted one by one, more are merged.
constexpr std::size_t fewTerms = 2;

bool isBefore(const LinearTerm& term, int variable) {
    return term.variable < variable;
}

} // namespace

void LinearExpression::add(int variable, double coefficient) {
    const auto place = std::lower_bound(terms.begin(), terms.end(), variable, isBefore);
    if (place != terms.end() && place->variable == variable) {
        place->coefficient += coefficient;
        if (std::abs(place->coefficient) < noCoefficient) {
            terms.erase(place);
        }
    } else if (std::abs(coefficient) >= noCoefficient) {
        terms.insert(place, {variable, coefficient});
    }
}

void LinearExpression::add(const LinearExpression& other, double factor) {
    constant += factor * other.constant;
    if (other.terms.size() <= fewTerms) {
        for (const LinearTerm& term : other.terms) {
            add(term.variable, factor * term.coefficient);
        }
        return;
    }
    std::vector<LinearTerm> sum;
    sum.reserve(terms.size() + other.terms.size());
    auto mine = terms.cbegin();
    for (const LinearTerm& term : other.terms) {
        for (; mine != terms.cend() && mine->variable < term.variable; ++mine) {
            sum.push_back(*mine);
        }
        const bool isShared = mine != terms.cend() && mine->variable == term.variable;
        const double coefficient = factor * term.coefficient + (isShared ? (mine++)->coefficient : 0);
        if (std::abs(coefficient) >= noCoefficient) {
            sum.push_back({term.variable, coefficient});
        }
    }
    sum.insert(sum.end(), mine, terms.cend());
    terms = std::move(sum);
}

double LinearExpression::coefficientOf(int variable) const {
    const auto place = std::lower_bound(terms.begin(), terms.end(), variable, isBefore);
    return place != terms.end() && place->variable == variable ? place->coefficient : 0;
}

void LinearExpression::solveFor(int variable) {
    const double factor = -coefficientOf(variable);
    add(variable, factor);
    constant /= factor;
    for (LinearTerm& term : terms) {
        term.coefficient /= factor;
    }
}
