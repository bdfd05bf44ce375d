#pragma once

#include "platform/graphics/CGPath.h"
#include "platform/graphics/UIColor.h"

#include <algorithm>

class TextLayout;
class UIImage;

/// What views draw on. Coordinates are in points; y grows downwards. The state (origin and clip) is a stack: `save` or
/// `beginGroup` pushes, `restore` pops. Belongs to whoever draws a frame and lives as long as that.
class Canvas {
public:
    Canvas() = default;
    virtual ~Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    virtual void save() = 0;
    /// Like save, but what is drawn until the matching restore is put down as one picture of this opacity.
    virtual void beginGroup(CGFloat alpha) = 0;
    virtual void restore() = 0;
    /// Moves the origin.
    virtual void translate(CGFloat dx, CGFloat dy) = 0;
    virtual void clip(const CGPath& path) = 0;
    virtual void fillPath(const CGPath& path, const RGBA& color) = 0;
    virtual void strokePath(const CGPath& path, const RGBA& color, const StrokeStyle& style) = 0;
    /// The sharp shadow of an opaque shape. What the shape will cover may be left unpainted: draw the shape afterwards.
    virtual void drawShadow(const CGPath& path, const RGBA& color, CGSize offset) = 0;
    /// Stretches the image to `rect` (the caller applies content modes).
    virtual void drawImage(const UIImage& image, const CGRect& rect) = 0;
    /// `origin` is the top left corner of the layout's width.
    virtual void drawText(const TextLayout& layout, CGPoint origin, const RGBA& color) = 0;

    void clipRect(const CGRect& rect) { clip(CGPath::withRect(rect)); }
    void fillRect(const CGRect& rect, const RGBA& color) { fillPath(CGPath::withRect(rect), color); }
    void fillRoundedRect(const CGRect& rect, CGFloat radius, const RGBA& color) {
        fillPath(CGPath::withRoundedRect(rect, radius), color);
    }
    /// A border that lies inside `rect`.
    void strokeBorder(const CGRect& rect, CGFloat radius, CGFloat width, const RGBA& color) {
        if (!(width > 0) || rect.isEmpty()) {
            return;
        }
        const CGFloat inside = std::min({width, rect.size.width, rect.size.height});
        const CGRect middle = rect.insetBy(inside / 2, inside / 2);
        strokePath(CGPath::withRoundedRect(middle, std::max(0.0, radius - inside / 2)), color, {.width = inside});
    }
};
