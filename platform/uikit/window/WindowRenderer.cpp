#include "platform/uikit/window/WindowRenderer.h"

#include "platform/graphics/cairo/CairoCanvas.h"
#include "platform/uikit/window/UIWindow.h"
#include "platform/uikit/window/ViewPainter.h"

#include <cmath>

namespace {

constexpr CGFloat rounding = 1e-6; // points; frames stand on device pixels but for rounding errors

PixelRect pixelsTouched(const CGRect& rect, int scale) {
    const int left = static_cast<int>(std::floor((rect.minX() + rounding) * scale));
    const int top = static_cast<int>(std::floor((rect.minY() + rounding) * scale));
    const int right = static_cast<int>(std::ceil((rect.maxX() - rounding) * scale));
    const int bottom = static_cast<int>(std::ceil((rect.maxY() - rounding) * scale));
    return {left, top, right - left, bottom - top};
}

/// Only pixels that lie inside as a whole.
PixelRect pixelsInside(const CGRect& rect, int scale) {
    const int left = static_cast<int>(std::ceil((rect.minX() - rounding) * scale));
    const int top = static_cast<int>(std::ceil((rect.minY() - rounding) * scale));
    const int right = static_cast<int>(std::floor((rect.maxX() + rounding) * scale));
    const int bottom = static_cast<int>(std::floor((rect.maxY() + rounding) * scale));
    return {left, top, right - left, bottom - top};
}

PixelRect limitsOf(const Bitmap& bitmap) {
    return {0, 0, bitmap.width(), bitmap.height()};
}

CGRect pointsOf(const PixelRect& rect, int scale) {
    const CGFloat factor = scale;
    return CGRectMake(rect.x / factor, rect.y / factor, rect.width / factor, rect.height / factor);
}

} // namespace

WindowRenderer::WindowRenderer(CGSize size, int scale)
    : m_scale(scale),
      m_bitmap(static_cast<int>(std::lround(size.width * scale)), static_cast<int>(std::lround(size.height * scale))) {}

bool WindowRenderer::render(UIWindow& window) {
    window.layoutIfNeeded();
    const std::vector<WindowChange> changes = window.takeChanges();
    DirtyRegion dirty(limitsOf(m_bitmap));
    if (m_paintAll) {
        dirty.add(limitsOf(m_bitmap));
    } else {
        for (const WindowChange& change : changes) {
            take(change, dirty);
        }
    }
    m_paintAll = false;
    m_paintedPixels = 0;
    for (const PixelRect& rect : dirty.rects()) {
        paint(window, rect);
    }
    return !dirty.rects().empty();
}

void WindowRenderer::take(const WindowChange& change, DirtyRegion& dirty) {
    if (change.isMove()) {
        move(change.move, change.distance, dirty);
    } else {
        dirty.add(pixelsTouched(change.area, m_scale));
    }
}

void WindowRenderer::move(const ScrollMove& plan, CGFloat distance, DirtyRegion& dirty) {
    const PixelRect area = intersection(pixelsInside(plan.area, m_scale), limitsOf(m_bitmap));
    const PixelRect touched = intersection(pixelsTouched(plan.area, m_scale), limitsOf(m_bitmap));
    const int dy = static_cast<int>(std::lround(distance * m_scale));
    const bool wholePixels = std::abs(distance * m_scale - dy) < 1e-3;
    if (!plan.canMovePixels || !wholePixels || std::abs(dy) >= area.height || area != touched) {
        dirty.add(touched);
        return;
    }
    m_bitmap.scrollRows(area, dy);
    dirty.shift(area, dy);
    dirty.add({area.x, dy > 0 ? area.y : area.y + area.height + dy, area.width, std::abs(dy)});
    for (const CGRect& overlay : plan.overlays) {
        PixelRect stamped = intersection(pixelsTouched(overlay, m_scale), area);
        dirty.add(stamped);
        stamped.y += dy;
        dirty.add(intersection(stamped, area));
    }
}

void WindowRenderer::paint(UIWindow& window, const PixelRect& rect) {
    CairoCanvas canvas(m_bitmap, m_scale);
    const CGRect area = pointsOf(rect, m_scale);
    canvas.clipRect(area);
    ViewPainter(canvas, window.userInterfaceStyle()).paint(window, area);
    m_paintedPixels += static_cast<std::size_t>(rect.width) * static_cast<std::size_t>(rect.height);
}
