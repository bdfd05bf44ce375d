#pragma once

#include "platform/graphics/PNG.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>

/// A folder of pictures that goes with its test.
class PictureFolder : public support::TemporaryFolder {
public:
    /// A picture of one colour (premultiplied).
    [[nodiscard]] std::string writePicture(const std::string& name, int width, int height, std::uint32_t pixel) const {
        Bitmap bitmap(width, height);
        for (int y = 0; y < height; ++y) {
            std::fill_n(bitmap.row(y), width, pixel);
        }
        return writePNG(bitmap, path() / name) ? "" : path() / name;
    }
};
