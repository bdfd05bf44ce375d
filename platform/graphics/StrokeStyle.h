#pragma once

#include "platform/foundation/Geometry.h"

enum class CGLineJoin { miter = 0, round = 1, bevel = 2 };
enum class CGLineCap { butt = 0, round = 1, square = 2 };

/// How a path is stroked; the width is in points.
struct StrokeStyle {
    CGFloat width = 1;
    CGLineJoin join = CGLineJoin::miter;
    CGLineCap cap = CGLineCap::butt;

    friend bool operator==(const StrokeStyle&, const StrokeStyle&) = default;
};
