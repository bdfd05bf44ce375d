#include "platform/layout/LayoutSystem.h"

#include "platform/layout/LayoutRows.h"
#include "platform/layout/Simplex.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

using enum LayoutAxis;
/// Of the simplex's wishes for what is left open at the end.
constexpr double sizePriority = 2;
constexpr double positionPriority = 1;
/// A row that goes into a contradiction with a smaller factor has nothing to do with it.
constexpr double noFactor = 1e-9;

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

/// One run of `solveLayout`. In the simplex, the variables of the rows are numbered after those of the items.
class LayoutSolver {
public:
    LayoutSolver(const std::vector<LayoutItem>& items, const std::vector<LayoutConstraint>& constraints)
        : m_items(items), m_rows(items, constraints), m_isLeftOut(m_rows.rows().size(), false) {}

    [[nodiscard]] LayoutResult solve();

private:
    [[nodiscard]] int itemCount() const { return static_cast<int>(m_items.size()); }
    [[nodiscard]] const LayoutRow& rowOf(int variable) const {
        return m_rows.rows()[at(variable - m_rows.variableCount())];
    }
    [[nodiscard]] bool requireAll();
    [[nodiscard]] bool requireAll(LinearRelation relation);
    [[nodiscard]] bool leaveOut(int current);
    void fulfilWishes();
    [[nodiscard]] double strongestOpenWish() const;
    void findAmbiguities();
    void settleOpenVariables();
    void placeFrames();

    const std::vector<LayoutItem>& m_items;
    LayoutRows m_rows;
    std::vector<bool> m_isLeftOut;                                  // by row
    Simplex::Equations m_equations = Simplex::Equations::forgotten; // marked once there is a contradiction to explain
    std::optional<Simplex> m_simplex;
    std::vector<bool> m_isGiven; // by variable of an item, as in the result
    LayoutResult m_result;
};

LayoutResult LayoutSolver::solve() {
    m_result.conflicts = m_rows.conflicts();
    while (!requireAll()) {
        // A failure leaves one more row out, or is the first and gets the equations marked: this ends.
    }
    fulfilWishes();
    findAmbiguities();
    if (!m_result.ambiguities.empty()) {
        settleOpenVariables();
    }
    placeFrames();
    std::stable_sort(m_result.conflicts.begin(), m_result.conflicts.end(),
                     [](const LayoutConflict& a, const LayoutConflict& b) { return a.constraint < b.constraint; });
    m_result.work = m_simplex->work();
    return std::move(m_result);
}

bool LayoutSolver::requireAll() {
    m_simplex.emplace(m_rows.variableCount(), static_cast<int>(m_rows.rows().size()), m_rows.tolerance(), m_equations);
    if (!requireAll(LinearRelation::zero)) {
        return false;
    }
    m_isGiven.clear();
    for (int variable = 0; variable < m_rows.variableCount(); ++variable) {
        m_isGiven.push_back(!m_simplex->mayMove(variable));
    }
    return requireAll(LinearRelation::zeroOrMore);
}

bool LayoutSolver::requireAll(LinearRelation relation) {
    int variable = m_rows.variableCount();
    for (const LayoutRow& row : m_rows.rows()) {
        if (row.isRequired() && row.relation == relation && !m_isLeftOut[at(variable - m_rows.variableCount())] &&
            !m_simplex->require(variable, row.expression, relation) && !leaveOut(variable)) {
            return false;
        }
        ++variable;
    }
    return true;
}

/// Leaves the culprit out and reports it: the last constraint of those that contradict each other. True when that is
/// `current` itself, so that work can go on; otherwise everything starts again.
bool LayoutSolver::leaveOut(int current) {
    if (std::exchange(m_equations, Simplex::Equations::marked) == Simplex::Equations::forgotten) {
        return false;
    }
    std::vector<int> involved{current};
    for (const LinearTerm& term : m_simplex->row(current).terms) {
        if (std::abs(term.coefficient) > noFactor) {
            involved.push_back(term.variable);
        }
    }
    const int culprit = *std::max_element(involved.begin(), involved.end(),
                                          [this](int a, int b) { return rowOf(a).constraint < rowOf(b).constraint; });
    LayoutConflict conflict{
        rowOf(culprit).constraint, m_rows.nameOf(rowOf(culprit)), "contradicts other required constraints", {}};
    std::sort(involved.begin(), involved.end());
    for (const int other : involved) {
        const std::string name = m_rows.nameOf(rowOf(other));
        if (other != culprit && (conflict.others.empty() || conflict.others.back() != name)) {
            conflict.others.push_back(name);
        }
    }
    m_result.conflicts.push_back(std::move(conflict));
    m_isLeftOut[at(culprit - m_rows.variableCount())] = true;
    return culprit == current;
}

void LayoutSolver::fulfilWishes() {
    const double open = strongestOpenWish();
    const auto fulfil = [this](auto isMeant) {
        for (const LayoutRow& row : m_rows.rows()) {
            if (!row.isRequired() && isMeant(row.priority)) {
                m_simplex->wish(row.expression, row.relation, row.priority);
            }
        }
        m_simplex->fulfilWishes();
    };
    fulfil([open](double priority) { return priority > open; });
    for (int item = 0; item < itemCount(); ++item) {
        if (m_items[at(item)].width.isOpen) {
            const int width = LayoutRows::size(item, horizontal);
            m_isGiven[at(width)] = m_simplex->isDetermined(width);
        }
    }
    fulfil([open](double priority) { return priority <= open; });
}

double LayoutSolver::strongestOpenWish() const {
    double strongest = 0;
    for (const LayoutItem& item : m_items) {
        strongest = std::max(strongest, item.width.isOpen ? item.width.strongestWish() : 0);
    }
    return strongest;
}

/// Looks at sizes first, as positions rest on them.
void LayoutSolver::findAmbiguities() {
    std::vector<bool> isFree;
    for (int variable = 0; variable < m_rows.variableCount(); ++variable) {
        isFree.push_back(!m_simplex->isDetermined(variable));
    }
    for (int item = 0; item < itemCount(); ++item) {
        const LayoutAmbiguity ambiguity{item,
                                        m_items[at(item)].name,
                                        isFree[at(m_rows.position(item, horizontal))],
                                        isFree[at(m_rows.position(item, vertical))],
                                        isFree[at(LayoutRows::size(item, horizontal))],
                                        isFree[at(LayoutRows::size(item, vertical))]};
        if (ambiguity.x || ambiguity.y || ambiguity.width || ambiguity.height) {
            m_result.ambiguities.push_back(ambiguity);
        }
    }
}

/// What nothing determines: sizes go to the intrinsic size or zero, then positions to the parent's origin.
void LayoutSolver::settleOpenVariables() {
    const auto settle = [this](int variable, double target, double priority) {
        if (m_simplex->mayMove(variable)) {
            m_simplex->wish({{{variable, 1}}, -target}, LinearRelation::zero, priority);
        }
    };
    for (int item = 0; item < itemCount(); ++item) {
        const LayoutItem& source = m_items[at(item)];
        for (const LayoutAxis axis : {horizontal, vertical}) {
            const double length = source.along(axis).length.value_or(0);
            const bool hasParent = source.parent >= 0 && source.parent < itemCount();
            const int origin = m_rows.position(hasParent ? source.parent : item, axis);
            settle(LayoutRows::size(item, axis), std::isfinite(length) ? length : 0, sizePriority);
            settle(m_rows.position(item, axis), m_isGiven[at(origin)] ? m_simplex->row(origin).constant : 0,
                   positionPriority);
        }
    }
    m_simplex->fulfilWishes();
}

void LayoutSolver::placeFrames() {
    const auto length = [this](int variable) {
        const double value = m_simplex->row(variable).constant;
        // Factors that multiply up along a long chain can leave the range of numbers.
        return std::isfinite(value) ? value : 0;
    };
    for (int item = 0; item < itemCount(); ++item) {
        const int width = LayoutRows::size(item, horizontal);
        const int height = LayoutRows::size(item, vertical);
        m_result.frames.push_back(CGRectMake(length(m_rows.position(item, horizontal)),
                                             length(m_rows.position(item, vertical)), std::max(0.0, length(width)),
                                             std::max(0.0, length(height))));
        m_result.givenWidths.push_back(m_isGiven[at(width)]);
    }
}

} // namespace

LayoutMeasure measureOf(LayoutAttribute attribute) {
    static constexpr std::array<LayoutMeasure, 13> measures{{{horizontal, 1, 0},
                                                             {horizontal, 1, 1},
                                                             {vertical, 1, 0},
                                                             {vertical, 1, 1},
                                                             {horizontal, 1, 0},
                                                             {horizontal, 1, 1},
                                                             {horizontal, 0, 1},
                                                             {vertical, 0, 1},
                                                             {horizontal, 1, 0.5},
                                                             {vertical, 1, 0.5},
                                                             {vertical, 1, 1},
                                                             {vertical, 1, 1},
                                                             {horizontal, 0, 0}}};
    static_assert(static_cast<std::size_t>(LayoutAttribute::notAnAttribute) + 1 == measures.size());
    return measures.at(static_cast<std::size_t>(attribute));
}

LayoutResult solveLayout(const std::vector<LayoutItem>& items, const std::vector<LayoutConstraint>& constraints) {
    return LayoutSolver(items, constraints).solve();
}
