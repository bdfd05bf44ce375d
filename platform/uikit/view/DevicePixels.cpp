#include "platform/uikit/view/DevicePixels.h"

#include "platform/uikit/window/UIScreen.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr CGFloat longestLength = 1e7;
constexpr CGFloat farthestPlace = 1e15;
constexpr CGFloat roundingError = 1e-3; // of a pixel

CGFloat scale() {
    const CGFloat scale = UIScreen::mainScreen().scale();
    return scale > 0 && std::isfinite(scale) ? scale : 1;
}

CGFloat limited(CGFloat points, CGFloat limit) {
    return std::isnan(points) ? 0 : std::clamp(points, -limit, limit);
}

} // namespace

Pixels pixelsNearest(CGFloat points) {
    return std::llround(limited(points, longestLength) * scale());
}

Pixels pixelsToHold(CGFloat points) {
    return static_cast<Pixels>(std::ceil(limited(points, longestLength) * scale() - roundingError));
}

Pixels pixelPlace(CGFloat points) {
    return std::llround(limited(points, farthestPlace) * scale());
}

Pixels pixelUnder(CGFloat points) {
    return static_cast<Pixels>(std::floor(limited(points, farthestPlace) * scale() + roundingError));
}

CGFloat pointsOf(Pixels pixels) {
    return static_cast<CGFloat>(pixels) / scale();
}
