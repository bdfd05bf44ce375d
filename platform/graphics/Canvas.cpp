#include "platform/graphics/Canvas.h"

#include <algorithm>

void Canvas::fillRoundedRect(const CGRect& rect, CGFloat radius, const RGBA& color) {
    fillPath(CGPath::withRoundedRect(rect, radius), color);
}

void Canvas::strokeBorder(const CGRect& rect, CGFloat radius, CGFloat width, const RGBA& color) {
    if (!(width > 0) || rect.isEmpty()) {
        return;
    }
    const CGFloat inside = std::min({width, rect.size.width, rect.size.height});
    const CGRect middle = rect.insetBy(inside / 2, inside / 2);
    strokePath(CGPath::withRoundedRect(middle, std::max(0.0, radius - inside / 2)), color, {.width = inside});
}
