#include "platform/graphics/cairo/CairoCanvas.h"

#include "platform/graphics/TextLayout.h"
#include "platform/graphics/UIImage.h"
#include "tests/graphics/PictureFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::uint32_t opaque = 0xFF000000;
constexpr std::uint32_t red = 0xFFFF0000;
constexpr RGBA redColor{1, 0, 0, 1};
constexpr RGBA black{0, 0, 0, 1};

struct Ink {
    int left = std::numeric_limits<int>::max();
    int right = -1;
    int top = std::numeric_limits<int>::max();
    int bottom = -1;
};

/// The box around everything that was drawn; right and bottom inside.
Ink inkOf(const Bitmap& bitmap) {
    Ink ink;
    for (int y = 0; y < bitmap.height(); ++y) {
        for (int x = 0; x < bitmap.width(); ++x) {
            if (bitmap.pixel(x, y) != 0) {
                ink = {std::min(ink.left, x), std::max(ink.right, x), std::min(ink.top, y), std::max(ink.bottom, y)};
            }
        }
    }
    return ink;
}

std::uint32_t alphaAt(const Bitmap& bitmap, int x, int y) {
    return bitmap.pixel(x, y) >> 24;
}

TextRequest line(const std::string& text, CGFloat width, NSTextAlignment alignment = NSTextAlignment::natural) {
    return {.text = text, .alignment = alignment, .maximumLines = 1, .width = width};
}

Ink inkOfText(const TextRequest& request) {
    Bitmap bitmap(300, 40);
    CairoCanvas canvas(bitmap, 1);
    canvas.drawText(*TextLayout::make(request), {0, 0}, black);
    return inkOf(bitmap);
}

TEST(CairoCanvasTest, FillsThePixelsOfARectangleAtEveryScale) {
    for (const int scale : {1, 2, 3}) {
        Bitmap bitmap(10 * scale, 10 * scale);
        CairoCanvas canvas(bitmap, scale);
        canvas.fillRect(CGRectMake(2, 3, 4, 5), redColor);
        const Ink ink = inkOf(bitmap);
        EXPECT_EQ(ink.left, 2 * scale);
        EXPECT_EQ(ink.right, 6 * scale - 1);
        EXPECT_EQ(ink.top, 3 * scale);
        EXPECT_EQ(ink.bottom, 8 * scale - 1);
        EXPECT_EQ(bitmap.pixel(2 * scale, 3 * scale), red);
    }
}

TEST(CairoCanvasTest, BordersLieInsideTheirRectangle) {
    Bitmap bitmap(20, 20);
    CairoCanvas canvas(bitmap, 1);
    canvas.strokeBorder(CGRectMake(5, 5, 10, 10), 0, 1, redColor);
    EXPECT_EQ(inkOf(bitmap).left, 5);
    EXPECT_EQ(inkOf(bitmap).right, 14);
    EXPECT_EQ(bitmap.pixel(5, 10), red);
    EXPECT_EQ(bitmap.pixel(6, 10), 0U);
}

TEST(CairoCanvasTest, RoundedClipsCutCornersOnlyWhereTheyAre) {
    Bitmap bitmap(40, 40);
    CairoCanvas canvas(bitmap, 1);
    canvas.save();
    canvas.clip(CGPath::withRoundedRect(CGRectMake(0, 0, 40, 40), 10));
    canvas.fillRect(CGRectMake(0, 0, 40, 40), redColor);
    EXPECT_EQ(bitmap.pixel(0, 0), 0U);
    EXPECT_EQ(bitmap.pixel(39, 39), 0U);
    EXPECT_EQ(bitmap.pixel(10, 0), red);
    EXPECT_EQ(bitmap.pixel(20, 20), red);
    canvas.restore();
    canvas.fillRect(CGRectMake(0, 0, 40, 40), redColor);
    EXPECT_EQ(bitmap.pixel(0, 0), red);
}

TEST(CairoCanvasTest, PlainClipsAndImagesSnapToPixels) {
    const PictureFolder folder;
    const UIImage image("dot", {{folder.writePicture("dot.png", 4, 4, red), 1}});
    Bitmap bitmap(20, 20);
    CairoCanvas canvas(bitmap, 1);
    canvas.drawImage(image, CGRectMake(10.4, 10.6, 4, 4));
    canvas.clipRect(CGRectMake(1.4, 1.6, 4, 4));
    canvas.fillRect(CGRectMake(0, 0, 8, 8), redColor);
    for (const std::uint32_t pixel : bitmap.pixels()) {
        ASSERT_TRUE(pixel == 0 || pixel == red);
    }
    EXPECT_EQ(bitmap.pixel(1, 2), red);
    EXPECT_EQ(bitmap.pixel(10, 11), red);
    EXPECT_EQ(inkOf(bitmap).bottom, 14);
}

TEST(CairoCanvasTest, AGroupIsPutDownAsOnePicture) {
    Bitmap bitmap(10, 10);
    CairoCanvas canvas(bitmap, 1);
    canvas.beginGroup(0.5);
    canvas.fillRect(CGRectMake(0, 0, 8, 10), black);
    canvas.fillRect(CGRectMake(2, 0, 8, 10), black);
    canvas.restore();
    EXPECT_EQ(alphaAt(bitmap, 1, 5), alphaAt(bitmap, 5, 5));
    EXPECT_NEAR(alphaAt(bitmap, 5, 5), 128, 1);
    canvas.beginGroup(0);
    canvas.fillRect(CGRectMake(0, 0, 10, 10), redColor);
    canvas.restore();
    EXPECT_NE(bitmap.pixel(5, 5) & 0xFFFFFF, red & 0xFFFFFF);
}

TEST(CairoCanvasTest, AShadowIsItsShapeMoved) {
    Bitmap sharp(60, 60);
    CairoCanvas canvas(sharp, 1);
    const CGPath shape = CGPath::withRoundedRect(CGRectMake(20, 20, 20, 20), 4);
    canvas.drawShadow(shape, black, {0, 3});
    EXPECT_EQ(sharp.pixel(30, 42), opaque);
    EXPECT_EQ(sharp.pixel(30, 43), 0U);
}

TEST(CairoCanvasTest, ADotIsDrawnForALineOfNoLengthWithRoundCaps) {
    Bitmap bitmap(20, 20);
    CairoCanvas canvas(bitmap, 1);
    CGPath path;
    path.moveTo({10, 10});
    path.addLineTo({10, 10});
    canvas.strokePath(path, redColor, {.width = 10, .join = CGLineJoin::round, .cap = CGLineCap::round});
    EXPECT_EQ(bitmap.pixel(10, 10), red);
    EXPECT_EQ(bitmap.pixel(13, 10), red);
    EXPECT_EQ(bitmap.pixel(1, 1), 0U);
}

TEST(CairoCanvasTest, AlignmentPlacesTextInItsWidth) {
    EXPECT_LT(inkOfText(line("Truth", 300, NSTextAlignment::left)).left, 4);
    EXPECT_GT(inkOfText(line("Truth", 300, NSTextAlignment::right)).right, 295);
    const Ink center = inkOfText(line("Truth", 300, NSTextAlignment::center));
    EXPECT_NEAR(center.left, 299 - center.right, 2);
    EXPECT_GT(inkOfText(line("שלום", 300)).right, 290);
    EXPECT_LT(inkOfText(line("Truth", 300)).left, 4);
}

TEST(CairoCanvasTest, EmojiAreDrawnInColor) {
    Bitmap bitmap(40, 40);
    CairoCanvas canvas(bitmap, 1);
    canvas.drawText(*TextLayout::make(line("😀", 40)), {0, 0}, black);
    int yellow = 0;
    for (const std::uint32_t pixel : bitmap.pixels()) {
        yellow += (pixel >> 16 & 255) > 200 && (pixel & 255) < 120 ? 1 : 0;
    }
    EXPECT_GT(yellow, 50);
    EXPECT_LT(inkOf(bitmap).right, 25);
}

TEST(CairoCanvasTest, MovedPixelsAreThePixelsDrawnThere) {
    const auto draw = [](Bitmap& bitmap, CGFloat scroll) {
        CairoCanvas canvas(bitmap, 3);
        canvas.fillRect(CGRectMake(0, 0, 80, 200), {1, 1, 1, 1});
        canvas.translate(0, -scroll);
        for (int row = 0; row < 12; ++row) {
            const CGRect card = CGRectMake(8, row * 62.4 + 0.21, 64, 55.1);
            canvas.drawShadow(CGPath::withRoundedRect(card, 8), {0, 0, 0, 0.3}, {0, 3});
            canvas.fillRoundedRect(card, 8, {0.9, 0.95, 1, 1});
            canvas.strokeBorder(card, 8, 1, redColor);
            canvas.drawText(*TextLayout::make(line("Truth 😀", 60)), {12, card.minY() + 8.3}, black);
        }
    };
    for (const int pixels : {1, 7, 60, 100}) {
        Bitmap moved(240, 600);
        draw(moved, 0);
        moved.scrollRows({0, 0, 240, 600}, -pixels);
        Bitmap drawn(240, 600);
        draw(drawn, pixels / 3.0);
        for (int y = 0; y < 600 - pixels; ++y) {
            ASSERT_TRUE(std::equal(moved.row(y), moved.row(y) + 240, drawn.row(y))) << pixels << " row " << y;
        }
    }
}

TEST(CairoCanvasTest, WhatHasNoFinitePlaceIsNotDrawn) {
    const double nan = std::nan("");
    for (const CGRect& rect : {CGRectMake(nan, 0, 10, 10), CGRectMake(0, 0, nan, 10), CGRectMake(0, 0, HUGE_VAL, 1),
                               CGRectMake(-1e300, 0, 2e300, 10)}) {
        Bitmap bitmap(10, 10);
        CairoCanvas canvas(bitmap, 1);
        canvas.fillRect(rect, redColor);
        canvas.fillRoundedRect(rect, 4, redColor);
        canvas.strokeBorder(rect, 4, 2, redColor);
        canvas.drawShadow(CGPath::withRect(rect), black, {0, 5});
        canvas.clipRect(rect);
        canvas.fillRect(CGRectMake(0, 0, 10, 10), redColor);
        EXPECT_EQ(inkOf(bitmap).right, -1);
    }
    Bitmap nothing(0, 0);
    CairoCanvas(nothing, 3).fillRect(CGRectMake(0, 0, 10, 10), redColor);
}

} // namespace
