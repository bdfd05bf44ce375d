#include "platform/graphics/RecordingCanvas.h"

#include "platform/graphics/TextLayout.h"
#include "platform/graphics/UIImage.h"

#include <gtest/gtest.h>

namespace {

TEST(RecordingCanvasTest, WritesDownEveryOperation) {
    RecordingCanvas canvas;
    const RGBA black;
    canvas.save();
    canvas.translate(5, 6);
    canvas.concatenate(CGAffineTransform::scaling(2, 3));
    canvas.clip(CGPath::withRoundedRect(CGRectMake(0, 0, 10, 20), 4));
    canvas.beginGroup(0.5);
    canvas.fillRect(CGRectMake(1, 2, 3, 4), {1, 0.5, 0, 1});
    canvas.strokeBorder(CGRectMake(0, 0, 10, 10), 0, 2, black);
    canvas.drawShadow(CGPath::withRect(CGRectMake(0, 0, 1, 1)), {{0, 0, 0, 0.3}, {0, 3}, 0});
    canvas.drawImage(UIImage("arrow", {}), CGRectMake(0, 0, 8, 8), black);
    canvas.drawText(*TextLayout::make({.text = "Hi"}), {7, 8}, black);
    canvas.restore();
    EXPECT_EQ(canvas.text(), "save\n"
                             "translate 5 6\n"
                             "transform 2 0 0 3 0 0\n"
                             "clip roundedRect(0 0 10 20 r4)\n"
                             "group alpha 0.5\n"
                             "fill rect(1 2 3 4) rgba(1 0.5 0 1)\n"
                             "stroke rect(1 1 8 8) rgba(0 0 0 1) width 2 join miter cap butt\n"
                             "shadow rect(0 0 1 1) rgba(0 0 0 0.3) offset 0 3 radius 0\n"
                             "image \"arrow\" rect(0 0 8 8) tint rgba(0 0 0 1)\n"
                             "text \"Hi\" at(7 8) lines 1 rgba(0 0 0 1)\n"
                             "restore\n");
    EXPECT_TRUE(canvas.contains("clip roundedRect"));
    canvas.clear();
    EXPECT_TRUE(canvas.operations().empty());
}

} // namespace
