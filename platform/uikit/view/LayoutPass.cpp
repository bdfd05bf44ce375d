#include "platform/uikit/view/LayoutPass.h"

#include "platform/uikit/view/UIView.h"
#include "platform/uikit/view/ViewSystem.h"

namespace {

constexpr int maximumRounds = 10;
constexpr int maximumDepth = 8;  // of passes begun inside layoutSubviews
constexpr int maximumSolves = 3; // of one system for safe areas and autoresized views that moved along

int runningPasses = 0; // main thread

} // namespace

bool LayoutPass::isDue(const UIView& view) {
    return view.m_needsLayout || view.m_descendantNeedsLayout || view.m_constraintsChanged;
}

void LayoutPass::run(UIView& top) {
    const std::shared_ptr<UIView> keep = strong(&top);
    if (runningPasses == maximumDepth) {
        return;
    }
    // One round serves a pass begun inside another; what is left, the outer one sees.
    const int rounds = runningPasses == 0 ? maximumRounds : 1;
    ++runningPasses;
    for (int round = 0; round < rounds && isDue(top); ++round) {
        visit(top);
    }
    --runningPasses;
}

void LayoutPass::visit(UIView& view) {
    if (view.m_constraintsChanged && view.isSystemRoot()) {
        solve(view);
    }
    view.m_constraintsChanged = false;
    if (view.m_needsLayout) {
        view.m_needsLayout = false;
        view.layoutSubviews();
    }
    if (!view.m_descendantNeedsLayout) {
        return;
    }
    view.m_descendantNeedsLayout = false;
    std::vector<std::shared_ptr<UIView>> due;
    for (const std::shared_ptr<UIView>& subview : view.m_subviews) {
        if (isDue(*subview)) {
            due.push_back(subview);
        }
    }
    for (const std::shared_ptr<UIView>& subview : due) {
        visit(*subview);
    }
}

void LayoutPass::solve(UIView& root) {
    root.m_constraintsChanged = false;
    if (!root.m_system) {
        root.m_system = std::make_unique<ViewSystem>(root, ViewSystem::Purpose::placing);
    }
    for (int count = 0; count < maximumSolves && root.m_system->update(); ++count) {
        root.m_system->placeViews();
    }
    root.m_system->report(); // not before: the first solution may rest on the safe area of the place before
}
