#include "platform/graphics/PNG.h"

#include "tests/graphics/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

constexpr std::uint8_t colorTypeRGB = 2;
constexpr std::uint8_t colorTypeRGBA = 6;

std::uint8_t colorTypeOf(const Bitmap& bitmap) {
    return encodePNG(bitmap).at(25);
}

TEST(PNGTest, AnOpaquePictureComesBackAsItWas) {
    const TemporaryFolder folder;
    Bitmap bitmap(301, 7);
    for (int y = 0; y < bitmap.height(); ++y) {
        for (int x = 0; x < bitmap.width(); ++x) {
            bitmap.row(y)[x] = 0xFF000000U | static_cast<std::uint32_t>(x * 65521 + y * 257) % 0x1000000U;
        }
    }
    ASSERT_EQ(writePNG(bitmap, folder.path("a.png")), std::nullopt);
    const PNGReading reading = readPNG(folder.path("a.png"));
    ASSERT_TRUE(reading.bitmap.has_value()) << reading.error;
    EXPECT_TRUE(*reading.bitmap == bitmap);
    EXPECT_EQ(colorTypeOf(bitmap), colorTypeRGB);
    EXPECT_EQ(readPNGSize(folder.path("a.png"))->width, 301);
}

TEST(PNGTest, ATranslucentPictureKeepsItsAlpha) {
    const TemporaryFolder folder;
    const std::string path = folder.writePicture("a.png", 3, 2, 0x80402000);
    const PNGReading reading = readPNG(path);
    ASSERT_TRUE(reading.bitmap.has_value());
    EXPECT_EQ(reading.bitmap->pixel(2, 1), 0x80402000U);
    EXPECT_EQ(colorTypeOf(*reading.bitmap), colorTypeRGBA);
}

TEST(PNGTest, WhatCannotBeReadOrWrittenSaysWhy) {
    const TemporaryFolder folder;
    EXPECT_FALSE(readPNG(folder.path("missing.png")).error.empty());
    EXPECT_FALSE(readPNG(folder.writeText("text.png", "not a picture")).error.empty());
    EXPECT_EQ(readPNGSize(folder.writeText("short.png", "\x89PNG")).has_value(), false);
    EXPECT_NE(writePNG(Bitmap(2, 2), folder.path("no/such/folder.png")), std::nullopt);
    EXPECT_NE(writePNG(Bitmap(0, 0), folder.path("nothing.png")), std::nullopt);
}

} // namespace
