#include "platform/layout/LayoutSystem.h"

#include "platform/layout/LayoutSolver.h"

LayoutResult solveLayout(const std::vector<LayoutItem>& items, const std::vector<LayoutConstraint>& constraints) {
    return LayoutSolver(items, constraints).solve();
}
