#pragma once

#include "platform/graphics/Bitmap.h"

#include <cstddef>
#include <vector>

/// The device pixels that a frame must paint, as a few rectangles that do not overlap much. A value.
class DirtyRegion {
public:
    explicit DirtyRegion(const PixelRect& limits) : m_limits(limits) {}

    void add(const PixelRect& rect);
    /// What was dirty inside `area` is found `dy` rows further down (up, when negative) after the pixels there moved.
    void shift(const PixelRect& area, int dy);

    [[nodiscard]] const std::vector<PixelRect>& rects() const { return m_rects; }

private:
    void joinAll();

    PixelRect m_limits;
    std::vector<PixelRect> m_rects;
};

[[nodiscard]] PixelRect intersection(const PixelRect& one, const PixelRect& other);
[[nodiscard]] PixelRect unionOf(const PixelRect& one, const PixelRect& other);
[[nodiscard]] inline bool isEmpty(const PixelRect& rect) {
    return rect.width <= 0 || rect.height <= 0;
}
