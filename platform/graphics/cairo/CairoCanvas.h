#pragma once

#include "platform/graphics/Bitmap.h"
#include "platform/graphics/Canvas.h"

#include <functional>
#include <memory>
#include <vector>

struct _cairo;
struct _cairo_surface;
struct TextLine;

/// Draws into a bitmap with Cairo, greyscale antialiased, the same pixels at every run. Text baselines, images and
/// plain rectangular clips snap to device pixels, so that a picture scrolled by whole pixels is the picture drawn anew.
/// What has no finite place is not drawn. The bitmap must outlive the canvas.
class CairoCanvas : public Canvas {
public:
    CairoCanvas(Bitmap& bitmap, CGFloat scale);
    ~CairoCanvas() override;

    void save() override;
    void beginGroup(CGFloat alpha) override;
    void restore() override;
    void concatenate(const CGAffineTransform& transform) override;
    void clip(const CGPath& path) override;
    void fillPath(const CGPath& path, const RGBA& color) override;
    void strokePath(const CGPath& path, const RGBA& color, const StrokeStyle& style) override;
    void drawShadow(const CGPath& path, const Shadow& shadow) override;
    void drawImage(const UIImage& image, const CGRect& rect, const std::optional<RGBA>& tint) override;
    void drawText(const TextLayout& layout, CGPoint origin, const RGBA& color) override;

private:
    struct State {
        CGAffineTransform transform;
        bool isGroup = false;
        CGFloat groupAlpha = 1;
        /// How many of the rounded clips are in force.
        std::size_t roundedClips = 0;
    };
    struct Release {
        void operator()(_cairo* context) const;
    };

    [[nodiscard]] const CGAffineTransform& transform() const { return m_states.back().transform; }
    [[nodiscard]] CGRect toDevice(const CGRect& rect) const;
    /// Absent when a coordinate is not a number or out of reach.
    [[nodiscard]] std::optional<CGRect> deviceBounds(const CGRect& rect) const;
    void setColor(const RGBA& color);
    void addPath(const CGPath& path);
    [[nodiscard]] std::optional<CGRect> withoutCorners(const CGPath& path) const;
    [[nodiscard]] static bool touchesCorner(const CGRoundedRect& shape, const CGRect& bounds);
    /// Calls `draw` under those rounded clips whose corners its bounds (in pixels) touch.
    void paint(const CGRect& bounds, const std::function<void()>& draw);
    [[nodiscard]] CGRect clipBounds() const;
    void excludeCovered(const CGRoundedRect& shape);
    void fillBlurred(const CGPath& path, CGFloat sigma);
    [[nodiscard]] bool overlapsClip(const CGRect& bounds) const;
    void placeImage(const CGRect& rect, const Bitmap& pixels);
    void paintImage(_cairo_surface* surface, const std::optional<RGBA>& tint);
    void drawLine(const TextLine& line, CGPoint origin, const RGBA& color);

    std::unique_ptr<_cairo, Release> m_context;
    std::vector<State> m_states;
    /// In pixels. Cairo clips to their boxes; their corners are clipped only where something is drawn on them.
    std::vector<CGRoundedRect> m_roundedClips;
};
