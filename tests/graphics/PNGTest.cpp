#include "platform/graphics/PNG.h"

#include "tests/graphics/PictureFolder.h"

#include <gtest/gtest.h>

namespace {

/// 2 for three channels, 6 with an alpha channel.
std::uint8_t colorTypeOf(const Bitmap& bitmap) {
    return encodePNG(bitmap).at(25);
}

TEST(PNGTest, APictureComesBackAsItWas) {
    const PictureFolder folder;
    const std::string file = folder.path() / "a.png";
    Bitmap opaque(301, 7);
    for (int y = 0; y < opaque.height(); ++y) {
        for (int x = 0; x < opaque.width(); ++x) {
            opaque.row(y)[x] = 0xFF000000U | static_cast<std::uint32_t>(x * 65521 + y * 257) % 0x1000000U;
        }
    }
    ASSERT_FALSE(writePNG(opaque, file));
    EXPECT_TRUE(readPNG(file).value() == opaque);
    EXPECT_EQ(readPNGSize(file)->width, 301);
    EXPECT_EQ(colorTypeOf(opaque), 2);
    const Bitmap translucent = readPNG(folder.writePicture("b.png", 3, 2, 0x80402000)).value();
    EXPECT_EQ(translucent.pixel(2, 1), 0x80402000U);
    EXPECT_EQ(colorTypeOf(translucent), 6);
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
