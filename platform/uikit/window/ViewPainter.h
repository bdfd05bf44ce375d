#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/graphics/UIColor.h"

#include <cstddef>
#include <optional>

class Canvas;
class UIView;

/// Draws a view tree onto a canvas: for each view shadow, background, content, subviews and border, in that order, as
/// the platform's compositor stacks them. Made for one frame.
class ViewPainter {
public:
    ViewPainter(Canvas& canvas, UIUserInterfaceStyle style) : m_canvas(canvas), m_style(style) {}

    /// `dirty` is in the view's superview's coordinates, which are also the canvas's; what lies outside need not be
    /// drawn.
    void paint(UIView& view, const CGRect& dirty);

private:
    void paintFaded(UIView& view, const CGRect& dirty);
    void paintSelf(UIView& view, const CGRect& dirty);
    void paintShadow(const UIView& view);
    void paintBackground(const UIView& view);
    void paintContent(UIView& view, const CGRect& dirty);
    void paintSubviews(UIView& view, const CGRect& dirty, std::size_t first);
    /// Whether the view leaves nothing of what is below it visible inside `dirty`.
    [[nodiscard]] bool covers(const UIView& view, const CGRect& dirty) const;
    [[nodiscard]] std::optional<std::size_t> lastCoveringSubview(const UIView& view, const CGRect& dirty) const;
    void paintBorder(const UIView& view);

    Canvas& m_canvas;
    UIUserInterfaceStyle m_style;
};
