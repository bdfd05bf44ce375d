#pragma once

#include "platform/uikit/window/UIScreen.h"

#include <algorithm>

/// Lengths and places in whole pixels of the main screen. Lists reckon in them, so that sums are exact and everything
/// painted can be moved. No length exceeds 10,000,000 points.

[[nodiscard]] inline CGFloat limitedLength(CGFloat points) {
    constexpr CGFloat longest = 1e7;
    return std::clamp(points, -longest, longest);
}

[[nodiscard]] inline Pixels pixelsNearest(CGFloat points) {
    return UIScreen::mainScreen().grid().nearest(limitedLength(points));
}
/// For content that must not be cut off: up, unless only rounding errors are above the lower pixel.
[[nodiscard]] inline Pixels pixelsToHold(CGFloat points) {
    return UIScreen::mainScreen().grid().holding(limitedLength(points));
}
/// For places, which may be far away: not limited to the longest length.
[[nodiscard]] inline Pixels pixelPlace(CGFloat points) {
    return UIScreen::mainScreen().grid().nearest(points);
}
/// The pixel that a point of the screen lies in; places as well.
[[nodiscard]] inline Pixels pixelUnder(CGFloat points) {
    return UIScreen::mainScreen().grid().under(points);
}
[[nodiscard]] inline CGFloat pointsOf(Pixels pixels) {
    return UIScreen::mainScreen().grid().points(pixels);
}
