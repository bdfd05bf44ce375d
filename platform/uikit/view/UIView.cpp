#include "platform/uikit/view/UIView.h"

#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/view/ViewSystem.h"

UIView::UIView(const CGRect& frame)
    : m_bounds{{0, 0}, frame.size}, m_center{frame.midX(), frame.midY()}, m_layer(std::make_shared<CALayer>(this)) {}

UIView::~UIView() {
    for (const std::shared_ptr<UIView>& subview : m_subviews) {
        subview->m_superview = nullptr;
        subview->systemStructureChanged();
    }
    m_layer->detach();
}

// Look.

void UIView::setBackgroundColor(const std::shared_ptr<UIColor>& color) {
    if (m_backgroundColor != color) {
        m_backgroundColor = color;
        setNeedsDisplay();
    }
}

std::shared_ptr<UIColor> UIView::tintColor() const {
    for (const UIView* view = this; view != nullptr; view = view->m_superview) {
        if (view->m_tintColor) {
            return view->m_tintColor;
        }
    }
    return UIColor::systemColorNamed("systemBlueColor");
}

void UIView::setTintColor(const std::shared_ptr<UIColor>& color) {
    if (m_tintColor != color) {
        m_tintColor = color;
        setNeedsLayout();
        invalidate(paintedRect());
    }
}

void UIView::setAlpha(CGFloat alpha) {
    if (m_alpha != alpha) {
        m_alpha = alpha;
        invalidate(paintedRect());
    }
}

void UIView::setHidden(bool hidden) {
    if (m_hidden == hidden) {
        return;
    }
    m_hidden = false; // a hidden view has nothing to paint again
    invalidate(paintedRect());
    m_hidden = hidden;
}

void UIView::setContentMode(UIViewContentMode mode) {
    if (m_contentMode != mode) {
        m_contentMode = mode;
        setNeedsDisplay();
    }
}

// Drawing.

void UIView::setNeedsDisplay() {
    invalidate(m_bounds);
}

void UIView::drawRect(const CGRect& /*rect*/) {}

void UIView::invalidate(const CGRect& rect) {
    if (m_hidden || m_superview == nullptr) {
        return;
    }
    const CGRect visible = m_layer->masksToBounds() ? rect.intersection(m_bounds) : rect;
    if (!visible.isEmpty()) {
        const CGPoint origin = frame().origin;
        m_superview->invalidate(visible.offsetBy(origin.x - m_bounds.minX(), origin.y - m_bounds.minY()));
    }
}

CGRect UIView::paintedRect() const {
    CGRect painted = drawnRect().unionWith(m_layer->shadowRect());
    if (m_layer->masksToBounds()) {
        return painted;
    }
    for (const std::shared_ptr<UIView>& subview : m_subviews) {
        if (!subview->m_hidden) {
            const CGPoint origin = subview->frame().origin;
            painted = painted.unionWith(subview->paintedRect().offsetBy(origin.x - subview->m_bounds.minX(),
                                                                        origin.y - subview->m_bounds.minY()));
        }
    }
    return painted;
}

// Touches.

bool UIView::pointInsideWithEvent(CGPoint point, UIEvent* /*event*/) const {
    return m_bounds.contains(point);
}

std::shared_ptr<UIView> UIView::hitTestWithEvent(CGPoint point, UIEvent* event) {
    constexpr CGFloat invisible = 0.01;
    if (m_hidden || m_alpha <= invisible || !m_userInteractionEnabled || !pointInsideWithEvent(point, event)) {
        return nullptr;
    }
    for (auto subview = m_subviews.rbegin(); subview != m_subviews.rend(); ++subview) {
        const CGPoint origin = (*subview)->frame().origin;
        const CGPoint inSubview{point.x - origin.x + (*subview)->m_bounds.minX(),
                                point.y - origin.y + (*subview)->m_bounds.minY()};
        if (std::shared_ptr<UIView> hit = (*subview)->hitTestWithEvent(inSubview, event)) {
            return hit;
        }
    }
    return strong(this);
}

UIResponder* UIView::nextResponder() const {
    if (m_viewController != nullptr) {
        return m_viewController;
    }
    return m_superview;
}
