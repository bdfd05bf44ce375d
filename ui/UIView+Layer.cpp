#include "ui/UIView+Layer.h"

CGFloat cornerRadius(const UIView& view) {
    return view.layer()->cornerRadius();
}

void setCornerRadius(UIView& view, CGFloat radius) {
    view.layer()->setCornerRadius(radius);
    view.layer()->setMasksToBounds(true);
}

std::shared_ptr<UIColor> borderColorApp(const UIView& view) {
    return view.layer()->borderColor();
}

void setBorderColorApp(UIView& view, const std::shared_ptr<UIColor>& color) {
    view.layer()->setBorderColor(color);
}

CGFloat borderWidth(const UIView& view) {
    return view.layer()->borderWidth();
}

void setBorderWidth(UIView& view, CGFloat width) {
    view.layer()->setBorderWidth(width);
}
