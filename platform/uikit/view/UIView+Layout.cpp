#include "platform/uikit/view/UIView.h"

#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/LayoutPass.h"
#include "platform/uikit/view/ViewSystem.h"

#include <algorithm>

namespace {

std::size_t indexOf(UILayoutConstraintAxis axis) {
    return axis == UILayoutConstraintAxis::horizontal ? 0 : 1;
}

NSLayoutAnchor anchor(UIView& view, LayoutAttribute attribute) {
    return NSLayoutAnchor({strong(&view), LayoutGuide::view, attribute});
}

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
        constraint->setHolder(strong(this), true);
        systemStructureChanged();
    }
}

void UIView::removeConstraint(const std::shared_ptr<NSLayoutConstraint>& constraint) {
    const auto position = std::find(m_constraints.begin(), m_constraints.end(), constraint);
    if (position != m_constraints.end()) {
        constraint->setHolder({}, false);
        m_constraints.erase(position);
        systemStructureChanged();
    }
}

NSLayoutAnchor UIView::leftAnchor() {
    return anchor(*this, LayoutAttribute::left);
}

NSLayoutAnchor UIView::rightAnchor() {
    return anchor(*this, LayoutAttribute::right);
}

NSLayoutAnchor UIView::topAnchor() {
    return anchor(*this, LayoutAttribute::top);
}

NSLayoutAnchor UIView::bottomAnchor() {
    return anchor(*this, LayoutAttribute::bottom);
}

NSLayoutAnchor UIView::leadingAnchor() {
    return anchor(*this, LayoutAttribute::leading);
}

NSLayoutAnchor UIView::trailingAnchor() {
    return anchor(*this, LayoutAttribute::trailing);
}

NSLayoutAnchor UIView::widthAnchor() {
    return anchor(*this, LayoutAttribute::width);
}

NSLayoutAnchor UIView::heightAnchor() {
    return anchor(*this, LayoutAttribute::height);
}

NSLayoutAnchor UIView::centerXAnchor() {
    return anchor(*this, LayoutAttribute::centerX);
}

NSLayoutAnchor UIView::centerYAnchor() {
    return anchor(*this, LayoutAttribute::centerY);
}

UILayoutPriority UIView::contentHuggingPriority(UILayoutConstraintAxis axis) const {
    return m_hugging[indexOf(axis)];
}

UILayoutPriority UIView::contentCompressionResistancePriority(UILayoutConstraintAxis axis) const {
    return m_compressionResistance[indexOf(axis)];
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

// Natural sizes.

CGSize UIView::intrinsicContentSize() const {
    return {noIntrinsicMetric, noIntrinsicMetric};
}

CGSize UIView::intrinsicContentSizeForWidth(CGFloat /*width*/) const {
    return intrinsicContentSize();
}

std::optional<CGFloat> UIView::firstBaseline(CGSize /*size*/) const {
    return std::nullopt;
}

std::optional<CGFloat> UIView::lastBaseline(CGSize /*size*/) const {
    return std::nullopt;
}

void UIView::invalidateIntrinsicContentSize() {
    setNeedsUpdateConstraints();
}

CGSize UIView::sizeThatFits(CGSize /*size*/) const {
    return intrinsicContentSize();
}

CGFloat UIView::heightFittingWidth(CGFloat width) {
    if (!m_fitting) {
        m_fitting = std::make_unique<ViewSystem>(*this, ViewSystem::Purpose::fitting);
    }
    return m_fitting->heightForWidth(width);
}

// Marks. A view that is due has m_descendantNeedsLayout set in every ancestor.

bool UIView::isSystemRoot() const {
    return m_superview == nullptr || m_superview->isLayoutRoot();
}

UIView& UIView::systemRoot() {
    UIView* root = this;
    while (!root->isSystemRoot()) {
        root = root->m_superview;
    }
    return *root;
}

void UIView::setNeedsUpdateConstraints() {
    UIView& root = systemRoot();
    root.m_constraintsChanged = true;
    root.ancestorsNeedVisit();
}

void UIView::systemStructureChanged() {
    UIView* view = this;
    view->m_fitting.reset();
    view->m_system.reset();
    while (!view->isSystemRoot()) {
        view = view->m_superview;
        view->m_fitting.reset();
        view->m_system.reset();
    }
    view->m_constraintsChanged = true;
    view->ancestorsNeedVisit();
}

void UIView::ancestorsNeedVisit() {
    for (UIView* view = m_superview; view != nullptr && !view->m_descendantNeedsLayout; view = view->m_superview) {
        view->m_descendantNeedsLayout = true;
    }
}

void UIView::setNeedsLayout() {
    m_needsLayout = true;
    ancestorsNeedVisit();
}

void UIView::layoutIfNeeded() {
    LayoutPass::run(topView());
}

void UIView::layoutSubviews() {}
