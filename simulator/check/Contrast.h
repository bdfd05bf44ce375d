#pragma once

#include "platform/graphics/Bitmap.h"
#include "platform/graphics/UIColor.h"

#include <string>

/// How well a text stands out from what lies under it: from 1 (not at all) to 21 (black on white), by the formula of
/// the web's accessibility guidelines.
[[nodiscard]] double contrastRatio(const RGBA& one, const RGBA& other);

/// The same over all pixels of an area.
struct ContrastRange {
    double least = 21;
    double most = 1;
    bool isOneGround = true; // the pixels differ by no more than an eye can tell
    std::string colors;      // "#FFFFFF on #4DA289", where the contrast is least
};
/// `text` may be translucent; `area` is in pixels of the ground.
[[nodiscard]] ContrastRange contrastOver(const Bitmap& ground, const CGRect& area, const RGBA& text);

/// "4.50:1"
[[nodiscard]] std::string ratioText(double ratio);
