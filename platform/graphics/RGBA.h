#pragma once

#include "platform/foundation/Geometry.h"

/// A colour as it is painted: sRGB components from 0 to 1, not premultiplied.
struct RGBA {
    CGFloat red = 0;
    CGFloat green = 0;
    CGFloat blue = 0;
    CGFloat alpha = 1;

    friend bool operator==(const RGBA&, const RGBA&) = default;

    [[nodiscard]] bool isOpaque() const { return alpha >= 1; }
};
