#pragma once

#include "platform/graphics/Bitmap.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// PNG files to and from bitmaps. Written fast rather than small (level 1, no filters), as sRGB: RGB when every pixel
/// is opaque, else RGBA. Errors are one line without the file's name.

struct PNGReading {
    /// Absent when the file could not be read; then `error` says why.
    std::optional<Bitmap> bitmap;
    std::string error;
};

struct PixelSize {
    int width = 0;
    int height = 0;
};

[[nodiscard]] std::vector<std::uint8_t> encodePNG(const Bitmap& bitmap);
/// Absent when the file was written, else the error.
[[nodiscard]] std::optional<std::string> writePNG(const Bitmap& bitmap, const std::string& path);
/// Files of more than 8192 pixels a side are refused.
[[nodiscard]] PNGReading readPNG(const std::string& path);
/// Reads only the header; absent when it is none or too large.
[[nodiscard]] std::optional<PixelSize> readPNGSize(const std::string& path);
