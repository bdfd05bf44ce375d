#include "platform/uikit/view/CALayer.h"

#include "platform/foundation/FatalError.h"
#include "platform/graphics/UIColor.h"
#include "platform/uikit/view/UIView.h"

CALayer::CALayer(UIView* view)
    : m_view(view), m_borderColor(UIColor::blackColor()), m_shadowColor(UIColor::blackColor()) {}

/// Before a change and after it: a shadow may reach further in the old look or in the new one.
void CALayer::repaintView() {
    if (m_view != nullptr) {
        m_view->setNeedsRepaint();
    }
}

void CALayer::setBorderColor(const std::shared_ptr<UIColor>& color) {
    if (!sameColor(m_borderColor, color)) {
        change(m_borderColor, color);
    }
}

void CALayer::setShadowColor(const std::shared_ptr<UIColor>& color) {
    if (!sameColor(m_shadowColor, color)) {
        change(m_shadowColor, color);
    }
}

void CALayer::setShadowRadius(CGFloat radius) {
    if (radius != 0) {
        fatalError("A layer's shadow has a hard edge: its radius cannot be " + std::to_string(radius));
    }
}

CGRect CALayer::shadowRect() const {
    const bool isCast = m_shadowOpacity > 0 && m_shadowColor && !m_masksToBounds;
    if (!isCast || m_view == nullptr || !m_view->backgroundColor()) {
        return {};
    }
    return m_view->bounds().offsetBy(m_shadowOffset.width, m_shadowOffset.height);
}
