#pragma once

#include "platform/graphics/CGAffineTransform.h"
#include "platform/graphics/CGPath.h"
#include "platform/graphics/RGBA.h"
#include "platform/graphics/StrokeStyle.h"

#include <optional>

class TextLayout;
class UIImage;

/// A drop shadow; lengths in points.
struct Shadow {
    RGBA color = {};
    CGSize offset = {};
    CGFloat radius = 0;
};

/// What views draw on. Coordinates are in points; y grows downwards. The state (transform and clip) is a stack:
/// `save` or `beginGroup` pushes, `restore` pops. Belongs to whoever draws a frame and lives as long as that.
class Canvas {
public:
    virtual ~Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    virtual void save() = 0;
    /// Like save, but what is drawn until the matching restore is put down as one picture of this opacity.
    virtual void beginGroup(CGFloat alpha) = 0;
    virtual void restore() = 0;
    virtual void concatenate(const CGAffineTransform& transform) = 0;
    virtual void clip(const CGPath& path) = 0;
    virtual void fillPath(const CGPath& path, const RGBA& color) = 0;
    virtual void strokePath(const CGPath& path, const RGBA& color, const StrokeStyle& style) = 0;
    /// The shadow of an opaque shape. What the shape will cover may be left unpainted: draw the shape afterwards.
    virtual void drawShadow(const CGPath& path, const Shadow& shadow) = 0;
    /// Stretches the image to `rect` (the caller applies content modes); with a tint only its coverage counts.
    virtual void drawImage(const UIImage& image, const CGRect& rect, const std::optional<RGBA>& tint) = 0;
    /// `origin` is the top left corner of the layout's width.
    virtual void drawText(const TextLayout& layout, CGPoint origin, const RGBA& color) = 0;

    /// Device pixels a point.
    [[nodiscard]] CGFloat scale() const { return m_scale; }

    void translate(CGFloat dx, CGFloat dy) { concatenate(CGAffineTransform::translation(dx, dy)); }
    void clipRect(const CGRect& rect) { clip(CGPath::withRect(rect)); }
    void fillRect(const CGRect& rect, const RGBA& color) { fillPath(CGPath::withRect(rect), color); }
    void fillRoundedRect(const CGRect& rect, CGFloat radius, const RGBA& color);
    /// A border that lies inside `rect`.
    void strokeBorder(const CGRect& rect, CGFloat radius, CGFloat width, const RGBA& color);

protected:
    explicit Canvas(CGFloat scale) : m_scale(scale) {}

private:
    CGFloat m_scale;
};
