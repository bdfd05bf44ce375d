#include "platform/graphics/PNG.h"

#include "tests/graphics/PictureFolder.h"

#include <gtest/gtest.h>

namespace {

/// 2 for three channels, 6 with an alpha channel.
std::uint8_t colorTypeOf(const Bitmap& bitmap) {
    return encodePNG(bitmap).at(25);
}

TEST(PNGTest, AnOpaquePictureComesBackAsItWas) {
    const PictureFolder folder;
    Bitmap bitmap(301, 7);
    for (int y = 0; y < bitmap.height(); ++y) {
        for (int x = 0; x < bitmap.width(); ++x) {
            bitmap.row(y)[x] = 0xFF000000U | static_cast<std::uint32_t>(x * 65521 + y * 257) % 0x1000000U;
        }
    }
    ASSERT_FALSE(writePNG(bitmap, folder.path() / "a.png"));
    const Result<Bitmap> reading = readPNG(folder.path() / "a.png");
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading.value() == bitmap);
    EXPECT_EQ(colorTypeOf(bitmap), 2);
    EXPECT_EQ(readPNGSize(folder.path() / "a.png")->width, 301);
}

TEST(PNGTest, ATranslucentPictureKeepsItsAlpha) {
    const PictureFolder folder;
    const std::string path = folder.writePicture("a.png", 3, 2, 0x80402000);
    const Result<Bitmap> reading = readPNG(path);
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading.value().pixel(2, 1), 0x80402000U);
    EXPECT_EQ(colorTypeOf(reading.value()), 6);
}

TEST(PNGTest, WhatCannotBeReadOrWrittenSaysWhy) {
    const PictureFolder folder;
    EXPECT_NE(readPNG(folder.path() / "missing.png").failure().what, "");
    EXPECT_NE(readPNG(folder.write("text.png", "not a picture")).failure().what, "");
    EXPECT_FALSE(readPNGSize(folder.write("short.png", "\x89PNG")).has_value());
    EXPECT_TRUE(writePNG(Bitmap(2, 2), folder.path() / "no/such/folder.png"));
    EXPECT_TRUE(writePNG(Bitmap(0, 0), folder.path() / "nothing.png"));
}

} // namespace
