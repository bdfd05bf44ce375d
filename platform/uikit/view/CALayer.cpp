#include "platform/uikit/view/CALayer.h"

#include "platform/foundation/FatalError.h"
#include "platform/graphics/UIColor.h"
#include "platform/uikit/view/UIView.h"

CALayer::CALayer(UIView* view)
    : m_view(view), m_borderColor(UIColor::blackColor()), m_shadowColor(UIColor::blackColor()) {}

template <class Value>
void CALayer::change(Value& field, const Value& value) {
    if (field == value) {
        return;
    }
    if (m_view == nullptr) {
        field = value;
        return;
    }
    m_view->setNeedsRepaint();
    field = value;
    m_view->setNeedsRepaint();
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
