#include "platform/layout/Simplex.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

/// A change of cost smaller than this is none.
constexpr double noSlope = 1e-9;
/// A coefficient smaller than this is none.
constexpr double noCoefficient = 1e-9;

} // namespace

Simplex::Simplex(int unknowns, int rows, double tolerance, Equations equations)
    : m_unknowns(unknowns), m_tolerance(tolerance), m_equations(equations) {
    m_variables.reserve(static_cast<std::size_t>(2 * (unknowns + rows)));
    while (addVariable() + 1 < unknowns + rows) {
    }
}

int Simplex::addVariable() {
    const int variable = static_cast<int>(m_variables.size());
    m_variables.emplace_back();
    m_variables.back().parent = m_variables.back().next = variable;
    return variable;
}

bool Simplex::require(int variable, const LinearExpression& expression, LinearRelation relation) {
    if (relation == LinearRelation::zero) {
        return equate(variable, expression);
    }
    setRow(variable, expression);
    if (at(variable).row.constant < 0) {
        at(variable).costBelow = 1;
        minimise(variable);
        at(variable).costBelow = 0;
    }
    at(variable).mayFall = at(variable).row.constant < -m_tolerance;
    return !at(variable).mayFall;
}

/// Solves for an unknown, which from then on is replaced wherever it turns up. Of the large terms it takes the last.
bool Simplex::equate(int variable, const LinearExpression& expression) {
    LinearExpression row = reduced(expression);
    double largest = 0;
    int column = -1;
    for (const LinearTerm& term : row.terms) {
        largest = std::max(largest, term.variable < m_unknowns ? std::abs(term.coefficient) : 0);
    }
    for (const LinearTerm& term : row.terms) {
        column = term.variable < m_unknowns && std::abs(term.coefficient) >= largest / 2 ? term.variable : column;
    }
    if (column < 0) {
        at(variable).row = std::move(row);
        return std::abs(at(variable).row.constant) <= m_tolerance;
    }
    at(variable).mayRise = at(variable).mayFall = false;
    if (m_equations == Equations::marked) {
        row.add(variable, -1);
    }
    row.solveFor(column);
    at(column).row = std::move(row);
    at(column).hasRow = true;
    return true;
}

void Simplex::setRow(int variable, const LinearExpression& expression) {
    at(variable).row = reduced(expression);
    at(variable).hasRow = true;
    const int one = componentOf(variable);
    for (const LinearTerm& term : at(variable).row.terms) {
        const int other = componentOf(term.variable);
        if (one != other && mayMove(term.variable)) {
            at(other).parent = one;
            std::swap(at(one).next, at(other).next); // two circles become one
        }
    }
}

/// Over columns only.
LinearExpression Simplex::reduced(const LinearExpression& expression) {
    LinearExpression result;
    result.constant = expression.constant;
    result.terms.reserve(expression.terms.size());
    for (const LinearTerm& term : expression.terms) {
        if (at(term.variable).hasRow) {
            result.add(row(term.variable), term.coefficient);
        } else {
            result.add(term.variable, term.coefficient);
        }
    }
    m_work += expression.terms.size();
    return result;
}

/// A row stays true for ever, but that of an equation is not rewritten until somebody asks for it.
const LinearExpression& Simplex::row(int variable) {
    LinearExpression& row = at(variable).row;
    m_work += row.terms.size();
    if (std::any_of(row.terms.begin(), row.terms.end(), [this](LinearTerm term) { return at(term.variable).hasRow; })) {
        row = reduced(row);
    }
    return row;
}

int Simplex::componentOf(int variable) {
    while (at(variable).parent != variable) {
        variable = at(variable).parent = at(at(variable).parent).parent;
    }
    return variable;
}

void Simplex::wish(const LinearExpression& expression, LinearRelation relation, double priority) {
    m_wishes.push_back({addVariable(), relation, priority});
    setRow(m_wishes.back().variable, expression);
}

void Simplex::fulfilWishes() {
    const auto isBefore = [this](const Wish& a, const Wish& b) {
        const int component = componentOf(a.variable);
        const int other = componentOf(b.variable);
        return component != other ? component < other : a.priority > b.priority;
    };
    std::stable_sort(m_wishes.begin(), m_wishes.end(), isBefore);
    for (auto wish = m_wishes.begin(); wish != m_wishes.end();) {
        const auto first = wish;
        int open = -1;
        for (; wish != m_wishes.end() && !isBefore(*first, *wish); ++wish) {
            if (mayMove(wish->variable)) {
                open = wish->variable;
                at(open).costBelow = 1;
                at(open).costAbove = wish->relation == LinearRelation::zero ? 1 : 0;
            }
        }
        if (open >= 0) {
            minimise(open);
            freezeOptimum();
        }
    }
    m_wishes.clear();
}

/// Within the variable's component. False when the cost falls for ever.
bool Simplex::minimise(int variable) {
    gatherMembers(variable);
    // The steepest move is quick; the first one, taken after a while, cannot go round in circles.
    const std::size_t patience = 4 * m_members.size() + 20;
    for (std::size_t step = 0; step < 4 * patience; ++step) {
        computeSlopes();
        const Move move = chooseMove(step > patience ? Rule::first : Rule::steepest);
        if (move.column < 0) {
            return true;
        }
        const int leaving = chooseLeaving(move);
        if (leaving < 0) {
            return false;
        }
        pivot(leaving, move.column);
        at(move.column).isAbove = move.direction > 0;
    }
    return true;
}

void Simplex::gatherMembers(int variable) {
    m_members.clear();
    int member = variable;
    do {
        m_members.push_back(member);
        member = at(member).next;
    } while (member != variable);
    std::sort(m_members.begin(), m_members.end());
    for (const int index : m_members) {
        Variable& gathered = at(index);
        gathered.isAbove = !gathered.mayFall || (gathered.mayRise && gathered.row.constant >= 0);
    }
}

void Simplex::computeSlopes() {
    m_work += m_members.size();
    for (const int member : m_members) {
        at(member).slope = 0;
    }
    for (const int member : m_members) {
        const Variable& variable = at(member);
        const double cost = variable.isAbove ? variable.costAbove : -variable.costBelow;
        if (variable.hasRow && cost != 0) {
            m_work += variable.row.terms.size();
            for (const LinearTerm& term : variable.row.terms) {
                at(term.variable).slope += cost * term.coefficient;
            }
        }
    }
}

Simplex::Move Simplex::chooseMove(Rule rule) {
    Move best;
    double steepest = -noSlope;
    for (const int member : m_members) {
        const Variable& variable = at(member);
        const double up = variable.mayRise ? variable.slope + variable.costAbove : 0;
        const double down = variable.mayFall ? variable.costBelow - variable.slope : 0;
        if (!variable.hasRow && std::min(up, down) < steepest) {
            best = {member, up < down ? 1 : -1};
            steepest = std::min(up, down);
            if (rule == Rule::first) {
                break;
            }
        }
    }
    return best;
}

/// The variable that the move brings to zero first, of those whose cost bends there or that must not go beyond; -1 when
/// there is none.
int Simplex::chooseLeaving(const Move& move) {
    int leaving = -1;
    double nearest = std::numeric_limits<double>::infinity();
    for (const int member : m_members) {
        const Variable& variable = at(member);
        const double rate = move.direction * variable.row.coefficientOf(move.column);
        const bool bends = variable.costAbove + variable.costBelow > 0 || !variable.mayRise || !variable.mayFall;
        if (bends && (variable.isAbove ? rate < -noCoefficient : rate > noCoefficient)) {
            const double way = std::max(0.0, variable.isAbove ? variable.row.constant : -variable.row.constant);
            leaving = way / std::abs(rate) < nearest ? member : leaving;
            nearest = std::min(nearest, way / std::abs(rate));
        }
    }
    m_work += m_members.size();
    return leaving;
}

/// The leaving variable becomes a column; its row, turned round, is the column's.
void Simplex::pivot(int leaving, int column) {
    LinearExpression row = std::exchange(at(leaving).row, {});
    at(leaving).hasRow = false;
    row.add(leaving, -1);
    row.solveFor(column);
    for (const int member : m_members) {
        LinearExpression& other = at(member).row;
        const double coefficient = other.coefficientOf(column);
        if (coefficient != 0) {
            other.add(column, -coefficient);
            other.add(row, coefficient);
            m_work += other.terms.size();
        }
    }
    at(column).row = std::move(row);
    at(column).hasRow = true;
}

/// From now on only points are visited that cost no more than this one; all costs become zero.
void Simplex::freezeOptimum() {
    for (const int member : m_members) {
        Variable& variable = at(member);
        if (!variable.hasRow) {
            variable.mayRise = variable.mayRise && variable.slope + variable.costAbove <= noSlope;
            variable.mayFall = variable.mayFall && variable.costBelow - variable.slope <= noSlope;
        } else if (variable.costAbove + variable.costBelow > 0) {
            (variable.isAbove ? variable.mayFall : variable.mayRise) = false;
        }
        variable.costBelow = variable.costAbove = 0;
    }
}

/// A column by which the variable may move; -1 when there is none.
int Simplex::movableColumn(int variable) {
    if (!at(variable).hasRow) {
        return at(variable).mayRise || at(variable).mayFall ? variable : -1;
    }
    for (const LinearTerm& term : row(variable).terms) {
        if (std::abs(term.coefficient) >= noCoefficient && mayMove(term.variable)) {
            return term.variable;
        }
    }
    return -1;
}

bool Simplex::isDetermined(int variable) {
    if (!mayMove(variable)) {
        return true;
    }
    const int probe = addVariable();
    setRow(probe, {{{variable, 1}}, -row(variable).constant});
    bool isDetermined = true;
    for (const double up : {1.0, -1.0}) {
        at(probe).costBelow = -up;
        at(probe).costAbove = up;
        isDetermined = isDetermined && minimise(probe) && std::abs(at(probe).row.constant) <= m_tolerance;
    }
    at(probe).costBelow = at(probe).costAbove = 0;
    if (isDetermined) {
        // As a column for good, it answers the next question about what depends on it.
        at(probe).mayRise = at(probe).mayFall = false;
        pivot(probe, movableColumn(probe));
    } else {
        at(probe).row = {};
    }
    return isDetermined;
}
