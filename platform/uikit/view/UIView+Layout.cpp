#include "platform/uikit/view/UIView.h"

#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/ViewSystem.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int maximumRounds = 10;
constexpr int maximumDepth = 8;  // of layouts begun inside layoutSubviews
constexpr int maximumSolves = 3; // of one system, for safe areas and autoresized views that moved along

int runningLayouts = 0; // main thread

} // namespace

// Constraints.

void UIView::setTranslatesAutoresizingMaskIntoConstraints(bool translates) {
    if (m_autoresizes != translates) {
        m_autoresizes = translates;
        systemStructureChanged();
    }
}

void UIView::addConstraint(const std::shared_ptr<NSLayoutConstraint>& constraint) {
    if (std::find(m_constraints.begin(), m_constraints.end(), constraint) == m_constraints.end()) {
        m_constraints.push_back(constraint);
        constraint->setHolder(strong(this));
        systemStructureChanged();
    }
}

void UIView::removeConstraint(const std::shared_ptr<NSLayoutConstraint>& constraint) {
    if (std::erase(m_constraints, constraint) > 0) {
        constraint->setHolder({});
        systemStructureChanged();
    }
}

NSLayoutAnchor UIView::anchor(LayoutAttribute attribute) {
    return NSLayoutAnchor({strong(this), LayoutGuide::view, attribute});
}

void UIView::setLayoutMargins(const UIEdgeInsets& margins) {
    m_ownLayoutMargins = true;
    if (m_layoutMargins != margins) {
        m_layoutMargins = margins;
        setNeedsUpdateConstraints();
    }
}

void UIView::setViewController(UIViewController* controller) {
    constexpr UIEdgeInsets screenMargins{0, 16, 0, 16};
    m_viewController = controller;
    if (controller != nullptr && !m_ownLayoutMargins) {
        m_layoutMargins = screenMargins;
        setNeedsUpdateConstraints();
    }
}

CGFloat UIView::heightFittingWidth(CGFloat width) {
    if (!m_layout.fitting) {
        m_layout.fitting = std::make_unique<ViewSystem>(*this, ViewSystem::Purpose::fitting);
    }
    return m_layout.fitting->heightForWidth(width);
}

// The layout of a tree.

bool UIView::isSystemRoot() const {
    return m_superview == nullptr || m_superview->isLayoutRoot();
}

void UIView::mark(LayoutMarks::Mark mark) {
    m_layout.marks.set(mark);
    UIView* above = m_superview;
    while (above != nullptr && above->m_layout.marks.set(LayoutMarks::descendants)) {
        above = above->m_superview;
    }
}

void UIView::setNeedsUpdateConstraints() {
    UIView* root = this;
    while (!root->isSystemRoot()) {
        root = root->m_superview;
    }
    root->mark(LayoutMarks::constraints);
}

void UIView::systemStructureChanged() {
    for (UIView* view = this;; view = view->m_superview) {
        view->m_layout.placing.reset();
        view->m_layout.fitting.reset();
        if (view->isSystemRoot()) {
            view->mark(LayoutMarks::constraints);
            return;
        }
    }
}

void UIView::layoutIfNeeded() {
    const std::shared_ptr<UIView> top = strong(&topView());
    if (runningLayouts == maximumDepth) {
        return;
    }
    // One round serves a layout begun inside another; the outer one sees what it leaves.
    const int rounds = runningLayouts == 0 ? maximumRounds : 1;
    ++runningLayouts;
    for (int round = 0; round < rounds && top->isLayoutDue(); ++round) {
        top->layOut();
    }
    --runningLayouts;
}

void UIView::layOut() {
    if (m_layout.marks.take(LayoutMarks::constraints) && isSystemRoot()) {
        solveConstraints();
    }
    if (m_layout.marks.take(LayoutMarks::subviews)) {
        layoutSubviews();
    }
    if (!m_layout.marks.take(LayoutMarks::descendants)) {
        return;
    }
    std::vector<std::shared_ptr<UIView>> due;
    std::copy_if(m_subviews.begin(), m_subviews.end(), std::back_inserter(due),
                 [](const std::shared_ptr<UIView>& subview) { return subview->isLayoutDue(); });
    for (const std::shared_ptr<UIView>& subview : due) {
        subview->layOut();
    }
}

void UIView::solveConstraints() {
    if (!m_layout.placing) {
        m_layout.placing = std::make_unique<ViewSystem>(*this, ViewSystem::Purpose::placing);
    }
    ViewSystem& system = *m_layout.placing;
    for (int count = 0; count < maximumSolves && system.update(); ++count) {
        system.placeViews();
    }
    system.report(); // not before: the first solution may rest on the safe area of the place before
}
