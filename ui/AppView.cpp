#include "ui/AppView.h"

#include "platform/runtime/SourceLocation.h"

void AppView::setStrokeColor(const std::shared_ptr<UIColor>& color) {
    if (!color) {
        fatalErrorAt(*this, "the strokeColor is null");
    }
    m_strokeColor = color;
    layer()->setBorderColor(color);
}

void AppView::setStrokeWidth(CGFloat width) {
    m_strokeWidth = width;
    layer()->setBorderWidth(width);
}

void AppView::setEnableShadow(bool enable) {
    m_enableShadow = enable;
    applyShadow();
}

void AppView::layoutSubviews() {
    UIView::layoutSubviews();
    layer()->setBorderColor(m_strokeColor);
    layer()->setBorderWidth(m_strokeWidth);
    applyShadow();
}

void AppView::applyShadow() {
    CALayer& target = *layer();
    if (m_enableShadow) {
        target.setShadowColor(UIColor::blackColor());
        target.setShadowOpacity(0.3f);
        target.setShadowOffset({0, 3});
        target.setShadowRadius(0);
        target.setMasksToBounds(false);
    } else {
        target.setShadowOpacity(0);
        target.setShadowRadius(0);
        target.setShadowOffset({0, 0});
    }
}
