#include "platform/layout/Simplex.h"

#include <algorithm>
#include <cmath>

namespace {

/// A change of cost smaller than this is none.
constexpr double kNoSlope = 1e-9;
/// A coefficient smaller than this is none.
constexpr double kNoCoefficient = 1e-9;
/// Two lengths closer than this are equal, in points.
constexpr double kNoLength = 1e-7;

} // namespace

Simplex::Simplex(int unknowns) : m_stride(static_cast<std::size_t>(unknowns)) {
    m_columns.reserve(m_stride);
    m_variables.reserve(m_stride * 4);
    for (int unknown = 0; unknown < unknowns; ++unknown) {
        m_columns.push_back(unknown);
        m_variables.push_back({.column = unknown});
    }
}

int Simplex::addRow(const LinearExpression& expression) {
    const int row = rowCount();
    const int variable = static_cast<int>(m_variables.size());
    m_cells.resize(m_cells.size() + m_stride, 0);
    m_constants.push_back(expression.constant);
    m_rows.push_back(variable);
    double* target = coefficients(row);
    for (const LinearTerm& term : expression.terms) {
        const Variable& unknown = m_variables[static_cast<std::size_t>(term.variable)];
        if (unknown.column >= 0)
            target[unknown.column] += term.coefficient;
        if (unknown.row < 0)
            continue;
        m_constants.back() += term.coefficient * m_constants[static_cast<std::size_t>(unknown.row)];
        const double* source = coefficients(unknown.row);
        for (int column = 0; column < columnCount(); ++column)
            target[column] += term.coefficient * source[column];
    }
    m_variables.push_back({.row = row});
    return variable;
}

bool Simplex::require(int variable, LinearExpression& blocking) {
    Variable& required = m_variables[static_cast<std::size_t>(variable)];
    if (value(variable) < 0) {
        setCost(variable, 1, 0);
        minimise();
        clearCosts();
    }
    if (value(variable) >= -kNoLength) {
        required.mayFall = false;
        return true;
    }
    blocking = {};
    for (int column = 0; column < columnCount(); ++column) {
        const double coefficient = coefficients(required.row)[column];
        if (std::abs(coefficient) > kNoCoefficient)
            blocking.add(m_columns[static_cast<std::size_t>(column)], coefficient);
    }
    removeLatestRow();
    return false;
}

void Simplex::setCost(int variable, double below, double above) {
    m_variables[static_cast<std::size_t>(variable)].costBelow = below;
    m_variables[static_cast<std::size_t>(variable)].costAbove = above;
}

double Simplex::value(int variable) const {
    const int row = m_variables[static_cast<std::size_t>(variable)].row;
    return row < 0 ? 0 : m_constants[static_cast<std::size_t>(row)];
}

bool Simplex::minimise() {
    chooseSides();
    // Dantzig's rule is quick; the rule of the first candidate, taken after a while, cannot go round in circles.
    const int patience = 4 * (rowCount() + columnCount()) + 20;
    for (int step = 0; step < 4 * patience; ++step) {
        computeSlopes();
        const Move move = chooseMove(step > patience);
        if (move.direction == 0)
            return true;
        const int row = chooseLeaving(move);
        if (row < 0)
            return false;
        pivot(row, move);
    }
    return true;
}

void Simplex::chooseSides() {
    for (int row = 0; row < rowCount(); ++row) {
        Variable& variable = basic(row);
        const double length = m_constants[static_cast<std::size_t>(row)];
        variable.isAbove = !variable.mayFall || (variable.mayRise && length >= 0);
    }
}

void Simplex::computeSlopes() {
    m_slopes.assign(m_columns.size(), 0);
    for (int row = 0; row < rowCount(); ++row) {
        const Variable& variable = basic(row);
        const double cost = variable.isAbove ? variable.costAbove : -variable.costBelow;
        if (cost == 0)
            continue;
        const double* source = coefficients(row);
        for (std::size_t column = 0; column < m_slopes.size(); ++column)
            m_slopes[column] += cost * source[column];
    }
}

Simplex::Move Simplex::chooseMove(bool first) const {
    Move best{.slope = -kNoSlope};
    int lowest = static_cast<int>(m_variables.size());
    for (int column = 0; column < columnCount(); ++column) {
        const int entering = m_columns[static_cast<std::size_t>(column)];
        const Variable& variable = m_variables[static_cast<std::size_t>(entering)];
        const double slope = m_slopes[static_cast<std::size_t>(column)];
        const double up = variable.mayRise ? slope + variable.costAbove : 0;
        const double down = variable.mayFall ? variable.costBelow - slope : 0;
        const double steeper = std::min(up, down);
        if (first ? (steeper < -kNoSlope && entering < lowest) : steeper < best.slope) {
            best = {column, up < down ? 1 : -1, steeper};
            lowest = entering;
        }
    }
    return best;
}

/// Goes along the move past every bend at which the cost still falls, and stops at the row where it no longer does or
/// that may not cross zero. -1 when there is no such row.
int Simplex::chooseLeaving(const Move& move) {
    m_crossings.clear();
    for (int row = 0; row < rowCount(); ++row) {
        const double rate = move.direction * coefficients(row)[move.column];
        const Variable& variable = basic(row);
        const bool approaches = variable.isAbove ? rate < -kNoCoefficient : rate > kNoCoefficient;
        const bool bends = variable.costAbove + variable.costBelow > 0 || !variable.mayRise || !variable.mayFall;
        if (!approaches || !bends)
            continue;
        const double length = m_constants[static_cast<std::size_t>(row)];
        m_crossings.push_back(
            {std::max(0.0, variable.isAbove ? length : -length) / std::abs(rate), std::abs(rate), row});
    }
    std::sort(m_crossings.begin(), m_crossings.end(), [this](const Crossing& a, const Crossing& b) {
        if (a.distance != b.distance)
            return a.distance < b.distance;
        return m_rows[static_cast<std::size_t>(a.row)] < m_rows[static_cast<std::size_t>(b.row)];
    });
    double slope = move.slope;
    for (const Crossing& crossing : m_crossings) {
        Variable& variable = basic(crossing.row);
        slope += crossing.rate * (variable.costAbove + variable.costBelow);
        if (slope >= -kNoSlope || !(variable.isAbove ? variable.mayFall : variable.mayRise))
            return crossing.row;
        variable.isAbove = !variable.isAbove;
    }
    return -1;
}

void Simplex::pivot(int row, const Move& move) {
    double* source = coefficients(row);
    double& constant = m_constants[static_cast<std::size_t>(row)];
    const double inverse = 1 / source[move.column];
    for (int column = 0; column < columnCount(); ++column)
        source[column] *= -inverse;
    source[move.column] = inverse;
    constant *= -inverse;
    for (int other = 0; other < rowCount(); ++other) {
        double* target = coefficients(other);
        const double factor = target[move.column];
        if (other == row || factor == 0)
            continue;
        target[move.column] = 0;
        for (int column = 0; column < columnCount(); ++column)
            target[column] += factor * source[column];
        m_constants[static_cast<std::size_t>(other)] += factor * constant;
    }
    int& leaving = m_rows[static_cast<std::size_t>(row)];
    int& entering = m_columns[static_cast<std::size_t>(move.column)];
    std::swap(leaving, entering);
    m_variables[static_cast<std::size_t>(leaving)].row = row;
    m_variables[static_cast<std::size_t>(leaving)].column = -1;
    m_variables[static_cast<std::size_t>(leaving)].isAbove = move.direction > 0;
    m_variables[static_cast<std::size_t>(entering)].row = -1;
    m_variables[static_cast<std::size_t>(entering)].column = move.column;
}

void Simplex::freezeOptimum() {
    computeSlopes();
    for (int row = 0; row < rowCount(); ++row) {
        Variable& variable = basic(row);
        if (variable.costAbove + variable.costBelow > 0)
            (variable.isAbove ? variable.mayFall : variable.mayRise) = false;
    }
    for (int column = columnCount() - 1; column >= 0; --column) {
        Variable& variable = m_variables[static_cast<std::size_t>(m_columns[static_cast<std::size_t>(column)])];
        const double slope = m_slopes[static_cast<std::size_t>(column)];
        variable.mayRise = variable.mayRise && slope + variable.costAbove <= kNoSlope;
        variable.mayFall = variable.mayFall && variable.costBelow - slope <= kNoSlope;
        if (!variable.mayRise && !variable.mayFall)
            removeColumn(column);
    }
    clearCosts();
}

void Simplex::removeColumn(int column) {
    const int last = columnCount() - 1;
    for (int row = 0; row < rowCount(); ++row)
        coefficients(row)[column] = coefficients(row)[last];
    for (int row = 0; row < rowCount(); ++row)
        coefficients(row)[last] = 0;
    m_variables[static_cast<std::size_t>(m_columns[static_cast<std::size_t>(last)])].column = column;
    m_variables[static_cast<std::size_t>(m_columns[static_cast<std::size_t>(column)])].column = -1;
    m_columns[static_cast<std::size_t>(column)] = m_columns[static_cast<std::size_t>(last)];
    m_columns.pop_back();
}

void Simplex::removeLatestRow() {
    m_variables.pop_back();
    m_rows.pop_back();
    m_constants.pop_back();
    m_cells.resize(m_cells.size() - m_stride);
}

void Simplex::clearCosts() {
    for (Variable& variable : m_variables) {
        variable.costBelow = 0;
        variable.costAbove = 0;
    }
}

bool Simplex::isDetermined(const LinearExpression& expression) {
    const int variable = addRow(expression);
    const int row = m_variables[static_cast<std::size_t>(variable)].row;
    const double* depends = coefficients(row);
    bool determined = std::all_of(depends, depends + columnCount(),
                                  [](double coefficient) { return std::abs(coefficient) < kNoCoefficient; });
    if (!determined) {
        const double start = value(variable);
        determined = true;
        for (const double up : {1.0, -1.0}) {
            setCost(variable, -up, up);
            const bool isBounded = minimise();
            determined = determined && isBounded && std::abs(value(variable) - start) < kNoLength;
        }
        setCost(variable, 0, 0);
    }
    removeLatestRow();
    return determined;
}
