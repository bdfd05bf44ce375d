#pragma once

#include "platform/graphics/Bitmap.h"
#include "platform/graphics/Canvas.h"

#include <memory>
#include <vector>

struct _cairo;

/// Draws into a bitmap with Cairo, greyscale antialiased, the same pixels at every run. Text baselines and images snap
/// to device pixels, so that a picture scrolled by whole pixels is the picture drawn anew. The bitmap must outlive it.
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
        /// Below 1 for a group that is still to be put down.
        CGFloat groupAlpha = -1;
    };
    struct Release {
        void operator()(_cairo* context) const;
    };

    std::unique_ptr<_cairo, Release> m_context;
    std::vector<State> m_states;
};
