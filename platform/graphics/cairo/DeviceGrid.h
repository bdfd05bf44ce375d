#pragma once

#include "platform/foundation/Geometry.h"

#include <cmath>

/// Where coordinates in pixels fall. A hair is added before rounding, so that a half pixel that went through different
/// sums (a scrolled one) still rounds to the same side.
namespace device {

/// To a whole pixel.
[[nodiscard]] inline CGFloat snap(CGFloat value) {
    return std::floor(value + 0.5 + 1e-4);
}

/// To the steps in which Cairo counts.
[[nodiscard]] inline CGFloat grid(CGFloat value) {
    return std::floor(value * 256 + 0.5 + 1e-3) / 256;
}

[[nodiscard]] inline CGRect snap(const CGRect& rect) {
    const CGFloat x = snap(rect.minX());
    const CGFloat y = snap(rect.minY());
    return CGRectMake(x, y, snap(rect.maxX()) - x, snap(rect.maxY()) - y);
}

} // namespace device
