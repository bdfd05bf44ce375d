#include "platform/foundation/Geometry.h"

#include <algorithm>

bool CGRect::contains(CGPoint point) const {
    return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
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
