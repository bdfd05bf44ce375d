#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/runtime/NSObject.h"

#include <memory>

class UIColor;
class UIView;

/// The look of a view's rectangle: border, corners, shadow, clipping. Owned by its view, which it tells of every
/// change so that the view is drawn again. Border and shadow are opaque black at first, with no width and no opacity; a
/// null colour means none.
class CALayer : public NSObject {
public:
    /// `view` owns the layer and is told of changes until detach().
    explicit CALayer(UIView* view);

    [[nodiscard]] CGFloat cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(CGFloat radius) { change(m_cornerRadius, radius); }
    [[nodiscard]] CGFloat borderWidth() const { return m_borderWidth; }
    void setBorderWidth(CGFloat width) { change(m_borderWidth, width); }
    [[nodiscard]] std::shared_ptr<UIColor> borderColor() const { return m_borderColor; }
    void setBorderColor(const std::shared_ptr<UIColor>& color);
    [[nodiscard]] bool masksToBounds() const { return m_masksToBounds; }
    void setMasksToBounds(bool masks) { change(m_masksToBounds, masks); }

    [[nodiscard]] std::shared_ptr<UIColor> shadowColor() const { return m_shadowColor; }
    void setShadowColor(const std::shared_ptr<UIColor>& color);
    /// 0 … 1; the platform's initial value is 0, no shadow.
    [[nodiscard]] float shadowOpacity() const { return m_shadowOpacity; }
    void setShadowOpacity(float opacity) { change(m_shadowOpacity, opacity); }
    [[nodiscard]] CGSize shadowOffset() const { return m_shadowOffset; }
    void setShadowOffset(CGSize offset) { change(m_shadowOffset, offset); }
    /// Shadows have a hard edge here: any radius but 0 stops the program.
    void setShadowRadius(CGFloat radius);
    /// Where the shadow falls, in the view's coordinates. Empty without one: a view that clips or has no background
    /// casts none.
    [[nodiscard]] CGRect shadowRect() const;

    /// Whether a border is drawn, above all that is inside the view.
    [[nodiscard]] bool hasBorder() const { return m_borderWidth > 0 && m_borderColor; }
    /// Whether what is inside the view loses its corners.
    [[nodiscard]] bool cutsCorners() const { return m_masksToBounds && m_cornerRadius > 0; }

    /// Called by the view when it goes away before the layer does.
    void detach() { m_view = nullptr; }

private:
    template <class Value>
    void change(Value& field, const Value& value) {
        if (field != value) {
            repaintView();
            field = value;
            repaintView();
        }
    }
    void repaintView();

    UIView* m_view;
    CGFloat m_cornerRadius = 0;
    CGFloat m_borderWidth = 0;
    std::shared_ptr<UIColor> m_borderColor;
    bool m_masksToBounds = false;
    std::shared_ptr<UIColor> m_shadowColor;
    float m_shadowOpacity = 0;
    CGSize m_shadowOffset{0, -3};
};
