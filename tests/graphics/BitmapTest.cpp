#include "platform/graphics/Bitmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

/// Each row filled with its number.
Bitmap numberedRows(int width, int height) {
    Bitmap bitmap(width, height);
    for (int y = 0; y < height; ++y) {
        std::fill_n(bitmap.row(y), width, static_cast<std::uint32_t>(y));
    }
    return bitmap;
}

std::vector<std::uint32_t> column(const Bitmap& bitmap, int x) {
    std::vector<std::uint32_t> values;
    for (int y = 0; y < bitmap.height(); ++y) {
        values.push_back(bitmap.pixel(x, y));
    }
    return values;
}

TEST(BitmapTest, MovingRowsTouchesOnlyTheArea) {
    Bitmap up = numberedRows(4, 6);
    up.scrollRows({1, 1, 2, 4}, -2);
    EXPECT_EQ(column(up, 1), (std::vector<std::uint32_t>{0, 3, 4, 3, 4, 5}));
    EXPECT_EQ(column(up, 0), (std::vector<std::uint32_t>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(column(up, 3), (std::vector<std::uint32_t>{0, 1, 2, 3, 4, 5}));
    Bitmap down = numberedRows(4, 6);
    down.scrollRows({1, 1, 2, 4}, 2);
    EXPECT_EQ(column(down, 2), (std::vector<std::uint32_t>{0, 1, 2, 1, 2, 5}));
    Bitmap same = numberedRows(4, 6);
    same.scrollRows({0, 0, 4, 6}, 6);
    same.scrollRows({0, 0, 4, 6}, -100);
    same.scrollRows({9, 9, 4, 6}, 1);
    EXPECT_TRUE(same == numberedRows(4, 6));
}

TEST(BitmapTest, AnySizeIsTransparentOrAFailureOrAStop) {
    Bitmap large(1179, 2556);
    large.populate();
    EXPECT_EQ(large.pixel(1178, 2555), 0U);
    EXPECT_TRUE(Bitmap(-3, 5).pixels().empty());
    EXPECT_EQ(Bitmap::make(1 << 28, 1 << 28).failure().what, "no memory for a picture of 268435456 x 268435456 pixels");
    EXPECT_FALSE(Bitmap::make(1 << 30, 1)) << "its rows have more bytes than an int counts";
    EXPECT_DEATH(Bitmap(1 << 28, 1 << 28), "no memory for a picture");
}

} // namespace
