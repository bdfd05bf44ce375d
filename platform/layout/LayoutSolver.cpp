#include "platform/layout/LayoutSolver.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <utility>

namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

/// Disjoint sets of variables; the answer stands for the whole set.
int findRoot(std::vector<int>& parents, int variable) {
    while (parents[at(variable)] != variable) {
        parents[at(variable)] = parents[at(parents[at(variable)])];
        variable = parents[at(variable)];
    }
    return variable;
}

} // namespace

LayoutSolver::LayoutSolver(const std::vector<LayoutItem>& items, const std::vector<LayoutConstraint>& constraints)
    : m_items(items), m_rows(items, constraints), m_tolerance(1e-9 * std::max(1000.0, m_rows.largestConstant())),
      m_isLeftOut(m_rows.rows().size(), 0), m_conflicts(m_rows.conflicts()) {}

LayoutResult LayoutSolver::solve() {
    // Every round that fails leaves one more row out, so this ends.
    while (!solveRequired())
        ;
    for (Group& group : m_groups)
        solveOptional(group);
    LayoutResult result;
    findAmbiguities(result);
    for (Group& group : m_groups)
        settle(group);
    placeFrames(result);
    std::stable_sort(m_conflicts.begin(), m_conflicts.end(),
                     [](const LayoutConflict& a, const LayoutConflict& b) { return a.constraint < b.constraint; });
    result.conflicts = std::move(m_conflicts);
    return result;
}

bool LayoutSolver::solveRequired() {
    eliminateEqualities();
    openRows();
    return std::all_of(m_groups.begin(), m_groups.end(), [this](Group& group) { return solveInequalities(group); });
}

void LayoutSolver::eliminateEqualities() {
    m_elimination.emplace(m_rows.variableCount(), m_rows.variableCount(), m_tolerance);
    m_eliminated.clear();
    m_trace.reset();
    for (int index = 0; index < static_cast<int>(m_rows.rows().size()); ++index) {
        const LayoutRow& row = m_rows.rows()[at(index)];
        if (!row.isEquality || !row.isRequired() || m_isLeftOut[at(index)])
            continue;
        const Elimination::Outcome outcome = m_elimination->add(row.expression);
        if (outcome == Elimination::Outcome::added)
            m_eliminated.push_back(index);
        else if (outcome == Elimination::Outcome::contradiction)
            // Rows come in order, so the one that contradicts is always the last of those involved.
            static_cast<void>(reportConflict(index, traceEqualities(row.expression)));
    }
}

void LayoutSolver::openRows() {
    std::vector<OpenRow> open;
    open.reserve(m_rows.rows().size());
    for (int index = 0; index < static_cast<int>(m_rows.rows().size()); ++index) {
        const LayoutRow& row = m_rows.rows()[at(index)];
        if (m_isLeftOut[at(index)] || (row.isEquality && row.isRequired()))
            continue;
        open.push_back({index, m_elimination->reduce(row.expression)});
    }
    makeGroups(std::move(open));
}

void LayoutSolver::makeGroups(std::vector<OpenRow> rows) {
    std::vector<int> parents(at(m_rows.variableCount()));
    std::iota(parents.begin(), parents.end(), 0);
    for (const OpenRow& row : rows) {
        for (const LinearTerm& term : row.expression.terms)
            parents[at(findRoot(parents, term.variable))] = findRoot(parents, row.expression.terms.front().variable);
    }
    m_groups.clear();
    m_groupOf.assign(parents.size(), -1);
    m_unknownOf.assign(parents.size(), -1);
    std::vector<int> groupOfRoot(parents.size(), -1);
    for (int variable = 0; variable < m_rows.variableCount(); ++variable) {
        if (!m_elimination->isOpen(variable))
            continue;
        int& group = groupOfRoot[at(findRoot(parents, variable))];
        if (group < 0) {
            group = static_cast<int>(m_groups.size());
            m_groups.emplace_back();
        }
        m_groupOf[at(variable)] = group;
        m_unknownOf[at(variable)] = static_cast<int>(m_groups[at(group)].variables.size());
        m_groups[at(group)].variables.push_back(variable);
    }
    // A required row without variables joins any group: it only has to be looked at.
    if (m_groups.empty())
        m_groups.emplace_back();
    for (OpenRow& row : rows) {
        const bool isConstant = row.expression.terms.empty();
        Group& group = m_groups[isConstant ? 0 : at(m_groupOf[at(row.expression.terms.front().variable)])];
        const bool isRequired = m_rows.rows()[at(row.row)].isRequired();
        if (isRequired || !isConstant)
            (isRequired ? group.required : group.optional).push_back(std::move(row));
    }
}

LinearExpression LayoutSolver::inGroup(const LinearExpression& expression, const Group& group) const {
    const int index = static_cast<int>(&group - m_groups.data());
    LinearExpression result;
    result.constant = expression.constant;
    for (const LinearTerm& term : expression.terms) {
        if (m_groupOf[at(term.variable)] == index)
            result.terms.push_back({m_unknownOf[at(term.variable)], term.coefficient});
    }
    return result;
}

bool LayoutSolver::solveInequalities(Group& group) {
    group.simplex.emplace(static_cast<int>(group.variables.size()));
    std::vector<int> rowOf(group.variables.size(), -1);
    for (const OpenRow& open : group.required) {
        if (open.expression.terms.empty()) {
            if (!acceptConstant(open))
                return false;
            continue;
        }
        LinearExpression blocking;
        const int variable = group.simplex->addRow(inGroup(open.expression, group));
        if (group.simplex->require(variable, blocking)) {
            rowOf.push_back(open.row);
            continue;
        }
        // The row less the rows that block it is a constant below zero, but for the equalities it was reduced by.
        LinearExpression sum = m_rows.rows()[at(open.row)].expression;
        std::vector<int> others;
        for (const LinearTerm& term : blocking.terms) {
            const int other = rowOf[at(term.variable)];
            if (other < 0)
                continue;
            others.push_back(other);
            sum.add(m_rows.rows()[at(other)].expression, -term.coefficient);
        }
        const std::vector<int> equalities = traceEqualities(sum);
        others.insert(others.end(), equalities.begin(), equalities.end());
        if (!reportConflict(open.row, std::move(others)))
            return false;
    }
    return true;
}

bool LayoutSolver::acceptConstant(const OpenRow& open) {
    if (open.expression.constant >= -m_tolerance)
        return true;
    return reportConflict(open.row, traceEqualities(m_rows.rows()[at(open.row)].expression));
}

std::vector<int> LayoutSolver::traceEqualities(const LinearExpression& expression) {
    const int markers = m_rows.variableCount();
    const int rowCount = static_cast<int>(m_rows.rows().size());
    if (!m_trace)
        m_trace.emplace(markers + rowCount, markers, m_tolerance);
    for (const int index : m_eliminated) {
        LinearExpression marked = m_rows.rows()[at(index)].expression;
        marked.add(markers + index, 1);
        static_cast<void>(m_trace->add(marked));
    }
    m_eliminated.clear();
    std::vector<int> involved;
    for (const LinearTerm& term : m_trace->reduce(expression).terms) {
        if (term.variable >= markers)
            involved.push_back(term.variable - markers);
    }
    return involved;
}

bool LayoutSolver::reportConflict(int current, std::vector<int> others) {
    int culprit = current;
    for (const int other : others) {
        if (m_rows.rows()[at(other)].constraint > m_rows.rows()[at(culprit)].constraint)
            culprit = other;
    }
    others.push_back(current);
    std::sort(others.begin(), others.end());
    LayoutConflict conflict;
    conflict.constraint = m_rows.rows()[at(culprit)].constraint;
    conflict.name = m_rows.nameOf(m_rows.rows()[at(culprit)]);
    conflict.reason = "contradicts other required constraints";
    for (const int other : others) {
        const std::string name = m_rows.nameOf(m_rows.rows()[at(other)]);
        if (other != culprit && (conflict.others.empty() || conflict.others.back() != name))
            conflict.others.push_back(name);
    }
    m_conflicts.push_back(std::move(conflict));
    m_isLeftOut[at(culprit)] = 1;
    return culprit == current;
}

void LayoutSolver::solveOptional(Group& group) {
    const auto priorityOf = [this](const OpenRow& row) { return m_rows.rows()[at(row.row)].priority; };
    std::stable_sort(group.optional.begin(), group.optional.end(),
                     [&](const OpenRow& a, const OpenRow& b) { return priorityOf(a) > priorityOf(b); });
    Simplex& simplex = *group.simplex;
    for (auto row = group.optional.begin(); row != group.optional.end() && !simplex.isFixed();) {
        const double priority = priorityOf(*row);
        for (; row != group.optional.end() && priorityOf(*row) == priority; ++row) {
            const bool isEquality = m_rows.rows()[at(row->row)].isEquality;
            simplex.setCost(simplex.addRow(inGroup(row->expression, group)), 1, isEquality ? 1 : 0);
        }
        simplex.minimise();
        simplex.freezeOptimum();
    }
}

void LayoutSolver::findAmbiguities(LayoutResult& result) {
    const auto isFree = [this](int variable) {
        const LinearExpression open = m_elimination->reduce({{{variable, 1}}, 0});
        for (const LinearTerm& term : open.terms) {
            Group& group = m_groups[at(m_groupOf[at(term.variable)])];
            if (!group.simplex->isFixed() && !group.simplex->isDetermined(inGroup(open, group)))
                return true;
        }
        return false;
    };
    if (std::all_of(m_groups.begin(), m_groups.end(), [](const Group& group) { return group.simplex->isFixed(); }))
        return;
    for (int item = 0; item < static_cast<int>(m_items.size()); ++item) {
        const LayoutAmbiguity ambiguity{item,
                                        m_items[at(item)].name,
                                        isFree(m_rows.x(item)),
                                        isFree(m_rows.y(item)),
                                        isFree(LayoutRows::width(item)),
                                        isFree(LayoutRows::height(item))};
        if (ambiguity.x || ambiguity.y || ambiguity.width || ambiguity.height)
            result.ambiguities.push_back(ambiguity);
    }
}

/// What nothing determines: sizes go to the intrinsic size or zero, then positions to the parent's origin.
void LayoutSolver::settle(Group& group) {
    if (group.simplex->isFixed())
        return;
    std::vector<int> sizes;
    std::vector<int> positions;
    std::vector<double> sizeTargets;
    std::vector<double> positionTargets;
    const auto origin = [this](int parent, int variable) {
        const bool isPlaced = parent >= 0 && parent < static_cast<int>(m_items.size());
        const LinearExpression open = isPlaced ? m_elimination->reduce({{{variable, 1}}, 0}) : LinearExpression();
        return open.terms.empty() ? open.constant : 0;
    };
    for (int item = 0; item < static_cast<int>(m_items.size()); ++item) {
        const LayoutItem& source = m_items[at(item)];
        const double width = source.intrinsicWidth.value_or(0);
        const double height = source.intrinsicHeight.value_or(0);
        sizes.insert(sizes.end(), {LayoutRows::width(item), LayoutRows::height(item)});
        sizeTargets.insert(sizeTargets.end(), {std::isfinite(width) ? width : 0, std::isfinite(height) ? height : 0});
        positions.insert(positions.end(), {m_rows.x(item), m_rows.y(item)});
        positionTargets.insert(positionTargets.end(), {origin(source.parent, m_rows.x(source.parent)),
                                                       origin(source.parent, m_rows.y(source.parent))});
    }
    settle(group, sizes, sizeTargets);
    settle(group, positions, positionTargets);
}

void LayoutSolver::settle(Group& group, const std::vector<int>& variables, const std::vector<double>& targets) {
    const int index = static_cast<int>(&group - m_groups.data());
    for (std::size_t wish = 0; wish < variables.size(); ++wish) {
        LinearExpression open = m_elimination->reduce({{{variables[wish], 1}}, -targets[wish]});
        const bool isOurs = std::all_of(open.terms.begin(), open.terms.end(),
                                        [&](const LinearTerm& term) { return m_groupOf[at(term.variable)] == index; });
        if (isOurs && !open.terms.empty())
            group.simplex->setCost(group.simplex->addRow(inGroup(open, group)), 1, 1);
    }
    group.simplex->minimise();
    group.simplex->freezeOptimum();
}

std::vector<double> LayoutSolver::values() const {
    std::vector<double> values(at(m_rows.variableCount()), 0);
    for (const Group& group : m_groups) {
        for (std::size_t unknown = 0; unknown < group.variables.size(); ++unknown)
            values[at(group.variables[unknown])] = group.simplex->value(static_cast<int>(unknown));
    }
    return values;
}

void LayoutSolver::placeFrames(LayoutResult& result) {
    const std::vector<double> open = values();
    const auto length = [&](int variable) {
        const double value = m_elimination->reduce({{{variable, 1}}, 0}).evaluate(open);
        // Factors that multiply up along a long chain can leave the range of numbers.
        return std::isfinite(value) ? value : 0;
    };
    result.frames.reserve(m_items.size());
    result.givenWidths.reserve(m_items.size());
    for (int item = 0; item < static_cast<int>(m_items.size()); ++item) {
        const double width = std::max(0.0, length(LayoutRows::width(item)));
        const double height = std::max(0.0, length(LayoutRows::height(item)));
        result.frames.push_back(CGRectMake(length(m_rows.x(item)), length(m_rows.y(item)), width, height));
        result.givenWidths.push_back(m_elimination->reduce({{{LayoutRows::width(item), 1}}, 0}).terms.empty());
    }
}
