#include "platform/uikit/view/CALayer.h"

#include "platform/graphics/UIColor.h"
#include "platform/uikit/view/UIView.h"

CALayer::CALayer(UIView* view)
    : m_view(view), m_borderColor(UIColor::blackColor()), m_shadowColor(UIColor::blackColor()) {}

// Both the old and the new look are painted again: a shadow may reach further before or after the change.

void CALayer::changed() {
    if (m_view != nullptr) {
        m_view->invalidate(m_view->paintedRect());
    }
}

template <class T>
void CALayer::change(T& field, const T& value) {
    if (field == value) {
        return;
    }
    changed();
    field = value;
    changed();
}

void CALayer::setCornerRadius(CGFloat radius) {
    change(m_cornerRadius, radius);
}

void CALayer::setBorderWidth(CGFloat width) {
    change(m_borderWidth, width);
}

void CALayer::setBorderColor(const std::shared_ptr<UIColor>& color) {
    change(m_borderColor, color);
}

void CALayer::setMasksToBounds(bool masks) {
    change(m_masksToBounds, masks);
}

void CALayer::setShadowColor(const std::shared_ptr<UIColor>& color) {
    change(m_shadowColor, color);
}

void CALayer::setShadowOpacity(float opacity) {
    change(m_shadowOpacity, opacity);
}

void CALayer::setShadowOffset(CGSize offset) {
    change(m_shadowOffset, offset);
}

void CALayer::setShadowRadius(CGFloat radius) {
    change(m_shadowRadius, radius);
}

CGRect CALayer::shadowRect() const {
    if (m_view == nullptr || m_shadowColor == nullptr || m_shadowOpacity <= 0) {
        return {};
    }
    // A blur of radius r is spent after three times r.
    return m_view->bounds()
        .offsetBy(m_shadowOffset.width, m_shadowOffset.height)
        .insetBy(-3 * m_shadowRadius, -3 * m_shadowRadius);
}
