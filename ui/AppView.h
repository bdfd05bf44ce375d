#pragma once

#include "platform/uikit/view/UIView.h"

#include <memory>

/// A container with a border and a hard drop shadow. Writing a property restyles the layer at once, and every layout
/// pass asserts all of them again, whatever was set on the layer in between. Interface files set the properties by key.
class AppView : public UIView {
public:
    using UIView::UIView;

    /// Border colour; null stops the program.
    [[nodiscard]] const std::shared_ptr<UIColor>& strokeColor() const { return m_strokeColor; }
    void setStrokeColor(const std::shared_ptr<UIColor>& color);
    /// Border width, points.
    [[nodiscard]] CGFloat strokeWidth() const { return m_strokeWidth; }
    void setStrokeWidth(CGFloat width);
    [[nodiscard]] bool enableShadow() const { return m_enableShadow; }
    void setEnableShadow(bool enable);

    void layoutSubviews() override;

private:
    void applyShadow();

    std::shared_ptr<UIColor> m_strokeColor = UIColor::whiteColor();
    CGFloat m_strokeWidth = 1.0;
    bool m_enableShadow = true;
};
