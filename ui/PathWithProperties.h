#pragma once

#include "platform/graphics/UIBezierPath.h"
#include "platform/graphics/UIColor.h"

#include <memory>

/// One stroke of the drawing canvas: its smoothed curve, with the colour and width (points) that counted when the
/// curve was last built. A value.
struct PathWithProperties {
    std::shared_ptr<UIBezierPath> path;
    std::shared_ptr<UIColor> color;
    CGFloat width = 0;
};
