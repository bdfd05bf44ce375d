#pragma once

#include "platform/foundation/Geometry.h"

#include <cstdint>

/// Lengths and places in whole pixels of the main screen. Lists reckon in them, so that sums are exact and everything
/// painted can be moved. Wild lengths (not a number, endless) are brought into range: no length exceeds 10,000,000
/// points.
using Pixels = std::int64_t;

[[nodiscard]] Pixels pixelsNearest(CGFloat points);
/// For content that must not be cut off: up, unless only rounding errors are above the lower pixel.
[[nodiscard]] Pixels pixelsToHold(CGFloat points);
/// For places, which may be far away: not limited to the longest length.
[[nodiscard]] Pixels pixelPlace(CGFloat points);
/// The pixel that a point of the screen lies in; places as well.
[[nodiscard]] Pixels pixelUnder(CGFloat points);
[[nodiscard]] CGFloat pointsOf(Pixels pixels);
