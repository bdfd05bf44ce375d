#include "platform/interface/DisplayP3.h"

#include <algorithm>
#include <cmath>

namespace {

// Both spaces share the transfer curve of sRGB.
double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double encoded(double light) {
    const double clipped = std::clamp(light, 0.0, 1.0);
    return std::min(1.0, clipped <= 0.0031308 ? clipped * 12.92 : 1.055 * std::pow(clipped, 1 / 2.4) - 0.055);
}

} // namespace

RGBA sRGBFromDisplayP3(const RGBA& color) {
    const double red = linear(color.red);
    const double green = linear(color.green);
    const double blue = linear(color.blue);
    return {encoded(1.2249401763 * red - 0.2249401763 * green), encoded(-0.0420569547 * red + 1.0420569547 * green),
            encoded(-0.0196375546 * red - 0.0786360456 * green + 1.0982736002 * blue), color.alpha};
}
