#pragma once

#include "platform/graphics/Bitmap.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// PNG files to and from bitmaps. Written fast rather than small (level 1, no filters), as sRGB: RGB when every pixel
/// is opaque, else RGBA. A failure does not name the file.

struct PixelSize {
    int width = 0;
    int height = 0;
};

[[nodiscard]] std::vector<std::uint8_t> encodePNG(const Bitmap& bitmap);
/// Absent when the file was written.
[[nodiscard]] std::optional<Failure> writePNG(const Bitmap& bitmap, const std::string& path);
/// Why a picture of that size would not be read; it names the limits.
[[nodiscard]] std::optional<Failure> pictureSizeRefusal(std::uint32_t width, std::uint32_t height);
/// Larger ones are refused.
[[nodiscard]] Result<Bitmap> readPNG(const std::string& path);
/// Reads only the header; absent when it is none or too large.
[[nodiscard]] std::optional<PixelSize> readPNGSize(const std::string& path);
