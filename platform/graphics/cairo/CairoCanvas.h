#pragma once

#include "platform/foundation/PixelGrid.h"
#include "platform/graphics/Bitmap.h"
#include "platform/graphics/Canvas.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct _cairo;
struct TextLine;

/// Where coordinates fall that are in pixels already: on whole ones, or on the steps in which Cairo counts.
inline constexpr PixelGrid wholePixels{1};
inline constexpr PixelGrid cairoSteps{256};

/// Draws into a bitmap with Cairo, greyscale antialiased, the same pixels at every run. Text baselines, images and
/// plain rectangular clips snap to device pixels, so that a picture scrolled by whole pixels is the picture drawn anew.
/// What has no finite place is not drawn. The bitmap must outlive the canvas.
class CairoCanvas : public Canvas {
public:
    /// `scale` in device pixels a point.
    CairoCanvas(Bitmap& bitmap, CGFloat scale);
    /// Draws what another one would draw now into a bitmap of its own, which shows `area` of the other's pixels.
    CairoCanvas(Bitmap& bitmap, const CairoCanvas& like, const PixelRect& area);
    ~CairoCanvas() override;

    void save() override;
    void beginGroup(CGFloat alpha) override;
    void restore() override;
    void translate(CGFloat dx, CGFloat dy) override;
    void clip(const CGPath& path) override;
    void fillPath(const CGPath& path, const RGBA& color) override;
    void strokePath(const CGPath& path, const RGBA& color, const StrokeStyle& style) override;
    void drawShadow(const CGPath& path, const RGBA& color, CGSize offset) override;
    void drawImage(const UIImage& image, const CGRect& rect) override;
    void drawText(const TextLayout& layout, CGPoint origin, const RGBA& color) override;

    /// The device's pixels of a rectangle whose edges fall between them and of which no rounded clip takes a part;
    /// absent for any other.
    [[nodiscard]] std::optional<PixelRect> wholePixelsOf(const CGRect& rect) const;
    /// All pixels that a rectangle reaches into, and all that can be drawn to now.
    [[nodiscard]] PixelRect pixelsOf(const CGRect& rect) const { return wholePixels.touchedBy(toDevice(rect)); }
    [[nodiscard]] PixelRect clipPixels() const { return wholePixels.touchedBy(clipBounds()); }
    /// Puts opaque pixels in the place of those in `area`.
    void replacePixels(const Bitmap& pixels, const PixelRect& area);

private:
    struct State {
        CGPoint origin; // of the points, in pixels
        std::optional<CGFloat> groupAlpha;
        /// How many of the rounded clips are in force.
        std::size_t roundedClips = 0;
    };
    struct Release {
        void operator()(_cairo* context) const;
    };

    [[nodiscard]] CGPoint toDevice(CGPoint point) const;
    [[nodiscard]] CGRect toDevice(const CGRect& rect) const;
    /// Absent when a coordinate is not a number or out of reach.
    [[nodiscard]] std::optional<CGRect> deviceBounds(const CGRect& rect) const;
    void setColor(const RGBA& color);
    void addPath(const CGPath& path);
    [[nodiscard]] std::optional<CGRect> withoutCorners(const CGPath& path) const;
    [[nodiscard]] static bool touchesCorner(const RoundedRect& shape, const CGRect& bounds);
    /// Calls `draw` under those rounded clips whose corners its bounds (in pixels) touch.
    void paint(const CGRect& bounds, const std::function<void()>& draw);
    [[nodiscard]] CGRect clipBounds() const;
    void excludeCovered(const RoundedRect& shape);
    [[nodiscard]] bool overlapsClip(const CGRect& bounds) const;
    void placeImage(const CGRect& rect, const Bitmap& pixels);
    void drawLine(const TextLine& line, CGPoint origin, const RGBA& color);

    CGFloat m_scale;
    std::unique_ptr<_cairo, Release> m_context;
    std::vector<State> m_states;
    /// In pixels. Cairo clips to their boxes; their corners are clipped only where something is drawn on them.
    std::vector<RoundedRect> m_roundedClips;
};
