#pragma once

#include "platform/foundation/Geometry.h"

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
