#include "platform/uikit/window/DirtyRegion.h"

#include <algorithm>

namespace {

/// Beyond this many, one rectangle around all is cheaper than many walks through the tree.
constexpr std::size_t mostRects = 8;

std::size_t area(const PixelRect& rect) {
    return static_cast<std::size_t>(rect.width) * static_cast<std::size_t>(rect.height);
}

bool contains(const PixelRect& outer, const PixelRect& inner) {
    return intersection(outer, inner) == inner;
}

/// The rectangle without the rows at its top or bottom that another covers from side to side.
PixelRect without(const PixelRect& rect, const PixelRect& covered) {
    const PixelRect common = intersection(rect, covered);
    const bool atTop = common.y == rect.y;
    const bool atBottom = common.y + common.height == rect.y + rect.height;
    if (isEmpty(common) || common.width != rect.width || !(atTop || atBottom)) {
        return rect;
    }
    return {rect.x, atTop ? rect.y + common.height : rect.y, rect.width, rect.height - common.height};
}

} // namespace

PixelRect intersection(const PixelRect& one, const PixelRect& other) {
    const int left = std::max(one.x, other.x);
    const int top = std::max(one.y, other.y);
    const int right = std::min(one.x + one.width, other.x + other.width);
    const int bottom = std::min(one.y + one.height, other.y + other.height);
    if (right <= left || bottom <= top) {
        return {};
    }
    return {left, top, right - left, bottom - top};
}

PixelRect unionOf(const PixelRect& one, const PixelRect& other) {
    const int left = std::min(one.x, other.x);
    const int top = std::min(one.y, other.y);
    return {left, top, std::max(one.x + one.width, other.x + other.width) - left,
            std::max(one.y + one.height, other.y + other.height) - top};
}

void DirtyRegion::add(const PixelRect& rect) {
    PixelRect added = intersection(rect, m_limits);
    for (const PixelRect& known : m_rects) {
        added = without(added, known);
    }
    if (isEmpty(added)) {
        return;
    }
    // Neighbours are joined where that paints hardly more than both apart.
    for (bool joined = true; joined;) {
        joined = false;
        for (auto known = m_rects.begin(); known != m_rects.end(); ++known) {
            const PixelRect both = unionOf(*known, added);
            if (area(both) <= area(*known) + area(added)) {
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
        all = unionOf(all, rect);
    }
    m_rects = {all};
}

void DirtyRegion::shift(const PixelRect& shifted, int dy) {
    const std::vector<PixelRect> before = std::move(m_rects);
    m_rects.clear();
    for (const PixelRect& rect : before) {
        PixelRect inside = intersection(rect, shifted);
        if (!contains(shifted, rect)) {
            add(rect);
        }
        if (!isEmpty(inside)) {
            inside.y += dy;
            add(intersection(inside, shifted));
        }
    }
}
