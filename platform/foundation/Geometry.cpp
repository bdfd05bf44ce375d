#include "platform/foundation/Geometry.h"

#include <algorithm>

bool CGRect::contains(CGPoint point) const {
    return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
}

bool CGRect::contains(const CGRect& other) const {
    return other.minX() >= minX() && other.minY() >= minY() && other.maxX() <= maxX() && other.maxY() <= maxY();
}

CGRect CGRect::intersection(const CGRect& other) const {
    const CGFloat left = std::max(minX(), other.minX());
    const CGFloat top = std::max(minY(), other.minY());
    const CGFloat right = std::min(maxX(), other.maxX());
    const CGFloat bottom = std::min(maxY(), other.maxY());
    if (!(right > left && bottom > top)) {
        return {};
    }
    return CGRectMake(left, top, right - left, bottom - top);
}

CGRect CGRect::unionWith(const CGRect& other) const {
    if (isEmpty()) {
        return other;
    }
    if (other.isEmpty()) {
        return *this;
    }
    const CGFloat left = std::min(minX(), other.minX());
    const CGFloat top = std::min(minY(), other.minY());
    return CGRectMake(left, top, std::max(maxX(), other.maxX()) - left, std::max(maxY(), other.maxY()) - top);
}

CGRect CGRect::insetBy(CGFloat dx, CGFloat dy) const {
    return CGRectMake(origin.x + dx, origin.y + dy, size.width - 2 * dx, size.height - 2 * dy);
}

CGRect CGRect::offsetBy(CGFloat dx, CGFloat dy) const {
    return CGRectMake(origin.x + dx, origin.y + dy, size.width, size.height);
}

CGRect UIEdgeInsetsInsetRect(const CGRect& rect, const UIEdgeInsets& insets) {
    return CGRectMake(rect.minX() + insets.left, rect.minY() + insets.top, rect.size.width - insets.left - insets.right,
                      rect.size.height - insets.top - insets.bottom);
}

std::size_t PixelRect::area() const {
    return isEmpty() ? 0 : static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

PixelRect PixelRect::intersection(const PixelRect& other) const {
    const int left = std::max(x, other.x);
    const int top = std::max(y, other.y);
    const int right = std::min(x + width, other.x + other.width);
    const int bottom = std::min(y + height, other.y + other.height);
    if (right <= left || bottom <= top) {
        return {};
    }
    return {left, top, right - left, bottom - top};
}

PixelRect PixelRect::unionWith(const PixelRect& other) const {
    const int left = std::min(x, other.x);
    const int top = std::min(y, other.y);
    return {left, top, std::max(x + width, other.x + other.width) - left,
            std::max(y + height, other.y + other.height) - top};
}
