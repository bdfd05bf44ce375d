#include "platform/uikit/window/DirtyRegion.h"

#include <algorithm>

namespace {

/// Beyond this many, one rectangle around all is cheaper than many walks through the tree.
constexpr std::size_t mostRects = 8;

/// The rectangle without the rows at its top or bottom that another covers from side to side.
PixelRect without(const PixelRect& rect, const PixelRect& covered) {
    const PixelRect common = rect.intersection(covered);
    const bool atTop = common.y == rect.y;
    const bool atBottom = common.y + common.height == rect.y + rect.height;
    if (common.isEmpty() || common.width != rect.width || !(atTop || atBottom)) {
        return rect;
    }
    return {rect.x, atTop ? rect.y + common.height : rect.y, rect.width, rect.height - common.height};
}

} // namespace

void DirtyRegion::add(const PixelRect& rect) {
    PixelRect added = rect.intersection(m_limits);
    for (const PixelRect& known : m_rects) {
        added = without(added, known);
    }
    if (added.isEmpty()) {
        return;
    }
    // Neighbours are joined where that paints hardly more than both apart.
    for (bool joined = true; joined;) {
        joined = false;
        for (auto known = m_rects.begin(); known != m_rects.end(); ++known) {
            const PixelRect both = known->unionWith(added);
            if (both.area() <= known->area() + added.area()) {
                added = both;
                m_rects.erase(known);
                joined = true;
                break;
            }
        }
    }
    m_rects.push_back(added);
    if (m_rects.size() > mostRects) {
        joinAll();
    }
}

void DirtyRegion::joinAll() {
    PixelRect all = m_rects.front();
    for (const PixelRect& rect : m_rects) {
        all = all.unionWith(rect);
    }
    m_rects = {all};
}

void DirtyRegion::shift(const PixelRect& shifted, int dy) {
    const std::vector<PixelRect> before = std::move(m_rects);
    m_rects.clear();
    for (const PixelRect& rect : before) {
        PixelRect inside = rect.intersection(shifted);
        if (!shifted.contains(rect)) {
            add(rect);
        }
        if (!inside.isEmpty()) {
            inside.y += dy;
            add(inside.intersection(shifted));
        }
    }
}
