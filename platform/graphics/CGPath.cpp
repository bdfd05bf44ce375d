#include "platform/graphics/CGPath.h"

#include <algorithm>

namespace {

/// How far the control points of a quarter circle of radius 1 stand from its ends.
constexpr CGFloat circleHandle = 0.5522847498307936;

/// How many points an element has, by its type.
constexpr std::array<std::size_t, 5> pointCounts{1, 1, 2, 3, 0};

std::size_t pointCount(CGPathElementType type) {
    return pointCounts[static_cast<std::size_t>(type)];
}

} // namespace

CGPath CGPath::withRect(const CGRect& rect) {
    CGPath path;
    path.m_elements.reserve(5);
    path.moveTo(rect.origin);
    path.addLineTo({rect.maxX(), rect.minY()});
    path.addLineTo({rect.maxX(), rect.maxY()});
    path.addLineTo({rect.minX(), rect.maxY()});
    path.closeSubpath();
    path.m_rectangle = RoundedRect{rect, 0};
    return path;
}

CGPath CGPath::withRoundedRect(const CGRect& rect, CGFloat radius) {
    const CGFloat limit = std::min(rect.size.width, rect.size.height) / 2;
    const CGFloat used = std::min(radius, limit);
    if (!(used > 0)) {
        return withRect(rect);
    }
    CGPath path = withCorners(rect, used, used);
    path.m_rectangle = RoundedRect{rect, used};
    return path;
}

CGPath CGPath::withCorners(const CGRect& rect, CGFloat rx, CGFloat ry) {
    const CGFloat hx = rx * (1 - circleHandle);
    const CGFloat hy = ry * (1 - circleHandle);
    const CGFloat left = rect.minX();
    const CGFloat top = rect.minY();
    const CGFloat right = rect.maxX();
    const CGFloat bottom = rect.maxY();
    CGPath path;
    path.moveTo({left + rx, top});
    path.addLineTo({right - rx, top});
    path.addCurveTo({right, top + ry}, {right - hx, top}, {right, top + hy});
    path.addLineTo({right, bottom - ry});
    path.addCurveTo({right - rx, bottom}, {right, bottom - hy}, {right - hx, bottom});
    path.addLineTo({left + rx, bottom});
    path.addCurveTo({left, bottom - ry}, {left + hx, bottom}, {left, bottom - hy});
    path.addLineTo({left, top + ry});
    path.addCurveTo({left + rx, top}, {left, top + hy}, {left + hx, top});
    path.closeSubpath();
    return path;
}

CGPath CGPath::withEllipseIn(const CGRect& rect) {
    return withCorners(rect, rect.size.width / 2, rect.size.height / 2);
}

CGRect CGPath::boundingBox() const {
    bool any = false;
    CGPoint low;
    CGPoint high;
    CGFloat taint = 0; // not a number as soon as one coordinate is infinite or none: min and max would hide that
    for (const CGPathElement& element : m_elements) {
        for (std::size_t i = 0; i < pointCount(element.type); ++i) {
            const CGPoint point = element.points[i];
            low = any ? CGPoint{std::min(low.x, point.x), std::min(low.y, point.y)} : point;
            high = any ? CGPoint{std::max(high.x, point.x), std::max(high.y, point.y)} : point;
            taint += (point.x - point.x) + (point.y - point.y);
            any = true;
        }
    }
    return CGRectMake(low.x, low.y, high.x - low.x + taint, high.y - low.y + taint);
}

CGPath CGPath::offsetBy(CGFloat dx, CGFloat dy) const {
    CGPath moved = *this;
    for (CGPathElement& element : moved.m_elements) {
        for (std::size_t i = 0; i < pointCount(element.type); ++i) {
            element.points[i] = {element.points[i].x + dx, element.points[i].y + dy};
        }
    }
    if (moved.m_rectangle.has_value()) {
        moved.m_rectangle->rect = moved.m_rectangle->rect.offsetBy(dx, dy);
    }
    return moved;
}

void CGPath::add(CGPathElementType type, std::array<CGPoint, 3> points) {
    m_rectangle.reset();
    m_elements.push_back({type, points});
}
