#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/graphics/DrawingContext.h"
#include "platform/graphics/UIColor.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

class Canvas;
class UIView;

/// Draws a view tree onto a canvas: for each view shadow, background, content, subviews and border, in that order, as
/// the platform's compositor stacks them. Made for one frame.
class ViewPainter {
public:
    /// Draws, onto the same canvas, the paths of a view that draws nothing else, over the opaque ground of its bounds.
    using PathDrawer = std::function<void(UIView& view, const RGBA& ground, std::vector<PathOperation> paths)>;

    /// Without a drawer, paths go to the canvas as they come.
    ViewPainter(Canvas& canvas, UIUserInterfaceStyle style, PathDrawer drawPaths = nullptr)
        : m_canvas(canvas), m_style(style), m_drawPaths(std::move(drawPaths)) {}

    /// `dirty` is in the view's superview's coordinates, which are also the canvas's; what lies outside need not be
    /// drawn.
    void paint(UIView& view, const CGRect& dirty);

private:
    /// An opaque subview over the lower end of what is dirty: of the subviews before it nothing shows below `above`.
    struct BottomBar {
        std::size_t index;
        CGRect above;
    };

    void paintFaded(UIView& view, const CGRect& dirty);
    void paintSelf(UIView& view, const CGRect& dirty);
    void paintShadow(const UIView& view);
    void paintBackground(const UIView& view);
    void paintContent(UIView& view, const CGRect& dirty);
    void paintSubviews(UIView& view, const CGRect& dirty, std::size_t first);
    /// Whether the view leaves nothing of what is below it visible inside `dirty`.
    [[nodiscard]] bool covers(const UIView& view, const CGRect& dirty) const;
    [[nodiscard]] std::optional<std::size_t> lastCoveringSubview(const UIView& view, const CGRect& dirty) const;
    /// Without one, its index is 0.
    [[nodiscard]] BottomBar lastBottomBar(const UIView& view, const CGRect& dirty) const;
    void paintBorder(const UIView& view);

    Canvas& m_canvas;
    UIUserInterfaceStyle m_style;
    PathDrawer m_drawPaths;
};
