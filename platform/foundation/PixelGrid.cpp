#include "platform/foundation/PixelGrid.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr CGFloat farthest = 1e15;   // pixels; neighbouring numbers of this size still differ by less than one
constexpr Pixels farthestEdge = 1e9; // of a rectangle, whose numbers are shorter

Pixels floored(CGFloat pixels) {
    return std::isnan(pixels) ? 0 : static_cast<Pixels>(std::floor(std::clamp(pixels, -farthest, farthest)));
}

PixelRect between(Pixels left, Pixels top, Pixels right, Pixels bottom) {
    const auto edge = [](Pixels place) { return static_cast<int>(std::clamp(place, -farthestEdge, farthestEdge)); };
    return {edge(left), edge(top), edge(right) - edge(left), edge(bottom) - edge(top)};
}

} // namespace

Pixels PixelGrid::nearest(CGFloat points) const {
    return floored(points * scale + 0.5 + tolerance);
}

Pixels PixelGrid::under(CGFloat points) const {
    return floored(points * scale + tolerance);
}

Pixels PixelGrid::holding(CGFloat points) const {
    return -floored(-points * scale + tolerance);
}

bool PixelGrid::isWhole(CGFloat points) const {
    return holding(points) <= under(points);
}

CGRect PixelGrid::snapped(const CGRect& rect) const {
    const CGFloat x = snapped(rect.minX());
    const CGFloat y = snapped(rect.minY());
    return CGRectMake(x, y, snapped(rect.maxX()) - x, snapped(rect.maxY()) - y);
}

CGSize PixelGrid::holding(CGSize size) const {
    return {points(holding(size.width)), points(holding(size.height))};
}

PixelRect PixelGrid::touchedBy(const CGRect& rect) const {
    return between(under(rect.minX()), under(rect.minY()), holding(rect.maxX()), holding(rect.maxY()));
}

PixelRect PixelGrid::inside(const CGRect& rect) const {
    return between(holding(rect.minX()), holding(rect.minY()), under(rect.maxX()), under(rect.maxY()));
}

CGRect PixelGrid::points(const PixelRect& rect) const {
    return CGRectMake(rect.x / scale, rect.y / scale, rect.width / scale, rect.height / scale);
}
