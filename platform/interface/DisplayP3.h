#pragma once

#include "platform/graphics/RGBA.h"

/// The nearest sRGB colour to one of the wider Display P3 space: converted by matrix, then clipped.
[[nodiscard]] RGBA sRGBFromDisplayP3(const RGBA& color);
