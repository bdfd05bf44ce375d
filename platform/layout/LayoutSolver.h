#pragma once

#include "platform/layout/Elimination.h"
#include "platform/layout/LayoutRows.h"
#include "platform/layout/Simplex.h"

#include <optional>
#include <vector>

/// One run of `solveLayout`: the required equalities go through the Elimination; what they leave open falls apart into
/// groups of variables that have nothing to do with each other (the two axes at least), each with a small Simplex.
class LayoutSolver {
public:
    LayoutSolver(const std::vector<LayoutItem>& items, const std::vector<LayoutConstraint>& constraints);

    [[nodiscard]] LayoutResult solve();

private:
    /// A row over the variables that are still open.
    struct OpenRow {
        int row = -1;
        LinearExpression expression;
    };
    struct Group {
        std::vector<int> variables; ///< the n-th is the simplex's unknown n
        std::vector<OpenRow> required;
        std::vector<OpenRow> optional; ///< highest priority first
        std::optional<Simplex> simplex;
    };

    [[nodiscard]] bool solveRequired();
    void eliminateEqualities();
    void openRows();
    void makeGroups(std::vector<OpenRow> rows);
    [[nodiscard]] bool solveInequalities(Group& group);
    [[nodiscard]] bool acceptConstant(const OpenRow& row);
    void solveOptional(Group& group);
    void findAmbiguities(LayoutResult& result);
    void settle(Group& group);
    void settle(Group& group, const std::vector<int>& variables, const std::vector<double>& targets);
    void placeFrames(LayoutResult& result);

    [[nodiscard]] std::vector<int> traceEqualities(const LinearExpression& expression);
    /// Leaves the culprit out and reports it: the last constraint of those that contradict each other. True when that
    /// is `current` itself, so that work can go on; otherwise everything starts again without the culprit.
    [[nodiscard]] bool reportConflict(int current, std::vector<int> others);
    [[nodiscard]] LinearExpression inGroup(const LinearExpression& expression, const Group& group) const;
    [[nodiscard]] std::vector<double> values() const;

    const std::vector<LayoutItem>& m_items;
    LayoutRows m_rows;
    double m_tolerance;
    std::vector<char> m_isLeftOut; ///< by row
    std::vector<LayoutConflict> m_conflicts;
    std::optional<Elimination> m_elimination;
    std::vector<int> m_eliminated; ///< the rows in the elimination
    std::optional<Elimination> m_trace;
    std::vector<int> m_groupOf;   ///< by variable; -1 when it is not open
    std::vector<int> m_unknownOf; ///< its number within the group
    std::vector<Group> m_groups;
};
