#pragma once

#include "platform/foundation/PixelGrid.h"

/// Where coordinates that are in pixels already fall.
namespace device {

/// To a whole pixel.
[[nodiscard]] inline CGFloat snap(CGFloat value) {
    return PixelGrid{1}.snapped(value);
}

[[nodiscard]] inline CGRect snap(const CGRect& rect) {
    return PixelGrid{1}.snapped(rect);
}

/// To the steps in which Cairo counts.
[[nodiscard]] inline CGFloat grid(CGFloat value) {
    return PixelGrid{256}.snapped(value);
}

} // namespace device
