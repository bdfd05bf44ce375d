#include "platform/graphics/cairo/CairoCanvas.h"

#include "platform/graphics/TextLayout.h"
#include "platform/graphics/UIImage.h"
#include "tests/graphics/PictureFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::uint32_t red = 0xFFFF0000;
constexpr RGBA redColor{1, 0, 0, 1};
constexpr RGBA black{0, 0, 0, 1};

/// A canvas with its own pixels.
struct Sheet {
    explicit Sheet(int width, int height, CGFloat scale = 1) : bitmap(width, height), canvas(bitmap, scale) {}

    /// The box around everything that was drawn: left, top, right, bottom, all inside; right is -1 for nothing.
    [[nodiscard]] std::array<int, 4> ink() const {
        std::array<int, 4> box{bitmap.width(), bitmap.height(), -1, -1};
        for (int y = 0; y < bitmap.height(); ++y) {
            for (int x = 0; x < bitmap.width(); ++x) {
                if (bitmap.pixel(x, y) != 0) {
                    box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x), std::max(box[3], y)};
                }
            }
        }
        return box;
    }

    Bitmap bitmap;
    CairoCanvas canvas;
};

TEST(CairoCanvasTest, FillsThePixelsOfARectangleAtEveryScaleAndPutsBordersInsideIt) {
    for (const int scale : {1, 2, 3}) {
        Sheet filled(10 * scale, 10 * scale, scale);
        filled.canvas.translate(2, 0);
        filled.canvas.fillRect(CGRectMake(0, 3, 4, 5), redColor);
        EXPECT_EQ(filled.ink(), (std::array{2 * scale, 3 * scale, 6 * scale - 1, 8 * scale - 1}));
        EXPECT_EQ(filled.bitmap.pixel(2 * scale, 3 * scale), red);
        Sheet bordered(20 * scale, 20 * scale, scale);
        bordered.canvas.strokeBorder(CGRectMake(5, 5, 10, 10), 0, 1, redColor);
        EXPECT_EQ(bordered.ink(), (std::array{5 * scale, 5 * scale, 15 * scale - 1, 15 * scale - 1}));
        EXPECT_EQ(bordered.bitmap.pixel(6 * scale - 1, 10 * scale), red);
        EXPECT_EQ(bordered.bitmap.pixel(6 * scale, 10 * scale), 0U);
    }
}

TEST(CairoCanvasTest, RoundedClipsCutCornersUntilTheirEnd) {
    Sheet sheet(40, 40);
    sheet.canvas.save();
    sheet.canvas.clip(CGPath::withRoundedRect(CGRectMake(0, 0, 40, 40), 10));
    sheet.canvas.fillRect(CGRectMake(0, 0, 40, 40), redColor);
    EXPECT_EQ(sheet.bitmap.pixel(0, 0), 0U);
    EXPECT_EQ(sheet.bitmap.pixel(39, 39), 0U);
    EXPECT_EQ(sheet.bitmap.pixel(10, 0), red);
    EXPECT_EQ(sheet.bitmap.pixel(20, 20), red);
    sheet.canvas.restore();
    sheet.canvas.fillRect(CGRectMake(0, 0, 40, 40), redColor);
    EXPECT_EQ(sheet.bitmap.pixel(0, 0), red);
}

TEST(CairoCanvasTest, PlainClipsAndImagesSnapToPixels) {
    const PictureFolder folder;
    const UIImage image("dot", {{folder.writePicture("dot.png", 4, 4, red), 1}});
    Sheet sheet(20, 20);
    sheet.canvas.drawImage(image, CGRectMake(10.4, 10.6, 4, 4));
    EXPECT_EQ(sheet.ink(), (std::array{10, 11, 13, 14}));
    sheet.canvas.clipRect(CGRectMake(1.4, 1.6, 4, 4));
    sheet.canvas.fillRect(CGRectMake(0, 0, 8, 8), redColor);
    EXPECT_EQ(sheet.ink(), (std::array{1, 2, 13, 14}));
    const auto pixels = sheet.bitmap.pixels();
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), red), 32) << "each pixel is there or not";
}

TEST(CairoCanvasTest, AGroupIsPutDownAsOnePicture) {
    Sheet sheet(10, 10);
    sheet.canvas.beginGroup(0.5);
    sheet.canvas.save();
    sheet.canvas.fillRect(CGRectMake(0, 0, 8, 10), black);
    sheet.canvas.restore();
    sheet.canvas.fillRect(CGRectMake(2, 0, 8, 10), black);
    sheet.canvas.restore();
    EXPECT_EQ(sheet.bitmap.pixel(1, 5), sheet.bitmap.pixel(5, 5));
    EXPECT_NEAR(sheet.bitmap.pixel(5, 5) >> 24, 128, 1);
}

TEST(CairoCanvasTest, AShadowIsItsShapeMovedAndRoundCapsMakeADotOfALineWithoutLength) {
    Sheet sheet(60, 60);
    sheet.canvas.drawShadow(CGPath::withRoundedRect(CGRectMake(20, 20, 20, 20), 4), redColor, {0, 3});
    EXPECT_EQ(sheet.bitmap.pixel(30, 42), red);
    EXPECT_EQ(sheet.bitmap.pixel(30, 43), 0U);
    Sheet dotted(20, 20);
    CGPath path;
    path.moveTo({10, 10});
    path.addLineTo({10, 10});
    dotted.canvas.strokePath(path, redColor, {.width = 10, .join = CGLineJoin::round, .cap = CGLineCap::round});
    EXPECT_EQ(dotted.ink(), (std::array{5, 5, 14, 14}));
    EXPECT_EQ(dotted.bitmap.pixel(13, 10), red);
}

/// Cards with shadow, border and text at a scale of 3, scrolled by so many points.
void drawCards(CairoCanvas& canvas, CGFloat scroll) {
    canvas.fillRect(CGRectMake(0, 0, 80, 200), {1, 1, 1, 1});
    canvas.translate(0, -scroll);
    for (int row = 0; row < 12; ++row) {
        const CGRect card = CGRectMake(8, row * 62.4 + 0.21, 64, 55.1);
        canvas.drawShadow(CGPath::withRoundedRect(card, 8), {0, 0, 0, 0.3}, {0, 3});
        canvas.fillRoundedRect(card, 8, {0.9, 0.95, 1, 1});
        canvas.strokeBorder(card, 8, 1, redColor);
        canvas.drawText(*TextLayout::make({.text = "Truth 😀", .width = 60}), {12, card.minY() + 8.3}, black);
    }
}

TEST(CairoCanvasTest, MovedPixelsAreThePixelsDrawnThere) {
    for (const int pixels : {1, 7, 60, 100}) {
        Sheet moved(240, 600, 3);
        drawCards(moved.canvas, 0);
        moved.bitmap.scrollRows({0, 0, 240, 600}, -pixels);
        Sheet drawn(240, 600, 3);
        drawCards(drawn.canvas, pixels / 3.0);
        for (int y = 0; y < 600 - pixels; ++y) {
            const std::uint32_t* row = moved.bitmap.row(y);
            ASSERT_TRUE(std::equal(row, row + 240, drawn.bitmap.row(y))) << pixels << " row " << y;
        }
    }
}

TEST(CairoCanvasTest, WhatHasNoFinitePlaceIsNotDrawn) {
    const double nan = std::nan("");
    for (const CGRect& rect : {CGRectMake(nan, 0, 10, 10), CGRectMake(0, 0, nan, 10), CGRectMake(0, 0, HUGE_VAL, 1),
                               CGRectMake(-1e300, 0, 2e300, 10)}) {
        Sheet sheet(10, 10);
        sheet.canvas.fillRect(rect, redColor);
        sheet.canvas.fillRoundedRect(rect, 4, redColor);
        sheet.canvas.strokeBorder(rect, 4, 2, redColor);
        sheet.canvas.drawShadow(CGPath::withRect(rect), black, {0, 5});
        sheet.canvas.clipRect(rect);
        sheet.canvas.fillRect(CGRectMake(0, 0, 10, 10), redColor);
        EXPECT_EQ(sheet.ink()[2], -1);
    }
    Sheet(0, 0, 3).canvas.fillRect(CGRectMake(0, 0, 10, 10), redColor);
}

} // namespace
