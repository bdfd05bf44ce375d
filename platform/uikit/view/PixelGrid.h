#pragma once

#include "platform/uikit/window/UIScreen.h"

#include <cmath>

/// Lengths on the screen's grid of device pixels. The same rounding for every edge, so that neighbours stay joined.

[[nodiscard]] inline CGFloat roundedToPixel(CGFloat length) {
    const CGFloat scale = UIScreen::mainScreen().scale();
    return std::floor(length * scale + 0.5 + 1e-6) / scale;
}

/// Up to the next pixel, so that what was measured has room.
[[nodiscard]] inline CGFloat ceiledToPixel(CGFloat length) {
    const CGFloat scale = UIScreen::mainScreen().scale();
    return std::ceil(length * scale - 1e-6) / scale;
}

[[nodiscard]] inline CGSize ceiledToPixel(CGSize size) {
    return {ceiledToPixel(size.width), ceiledToPixel(size.height)};
}

[[nodiscard]] inline CGRect roundedToPixel(const CGRect& rect) {
    const CGFloat x = roundedToPixel(rect.minX());
    const CGFloat y = roundedToPixel(rect.minY());
    return CGRectMake(x, y, roundedToPixel(rect.maxX()) - x, roundedToPixel(rect.maxY()) - y);
}
