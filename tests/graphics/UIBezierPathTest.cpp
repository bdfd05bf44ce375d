#include "platform/graphics/UIBezierPath.h"

#include "platform/graphics/DrawingContext.h"
#include "platform/graphics/RecordingCanvas.h"
#include "platform/graphics/UIColor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(UIBezierPathTest, KeepsItsPiecesInOrder) {
    UIBezierPath path;
    path.moveToPoint({1, 2});
    path.addQuadCurveToPointControlPoint({5, 6}, {3, 4});
    path.addLineToPoint({7, 8});
    const std::vector<CGPathElement> expected = {
        {CGPathElementType::moveToPoint, {{{1, 2}}}},
        {CGPathElementType::addQuadCurveToPoint, {{{3, 4}, {5, 6}}}},
        {CGPathElementType::addLineToPoint, {{{7, 8}}}},
    };
    EXPECT_EQ(path.elements(), expected);
    EXPECT_EQ(path.bounds(), CGRectMake(1, 2, 6, 6));
}

TEST(UIBezierPathTest, StrokesWithItsStyleAndTheCurrentColor) {
    RecordingCanvas canvas;
    const DrawingContext context(canvas, UIUserInterfaceStyle::light);
    UIColor::blueColor()->set();
    UIBezierPath path;
    path.moveToPoint({0, 0});
    path.addLineToPoint({10, 0});
    path.setLineWidth(40);
    path.setLineJoinStyle(CGLineJoin::round);
    path.setLineCapStyle(CGLineCap::round);
    path.stroke();
    path.fill();
    EXPECT_EQ(canvas.text(), "stroke path(M 0 0 L 10 0) rgba(0 0 1 1) width 40 join round cap round\n"
                             "fill path(M 0 0 L 10 0) rgba(0 0 1 1)\n");
}

TEST(UIBezierPathTest, DrawsNothingOutsideOfDrawing) {
    const UIBezierPath path(CGPath::withRect(CGRectMake(0, 0, 1, 1)));
    path.stroke();
    path.fill();
    UIColor::blueColor()->set();
    EXPECT_EQ(DrawingContext::current(), nullptr);
}

TEST(CGPathTest, KnowsWhetherItIsARoundedRectangle) {
    CGPath path = CGPath::withRoundedRect(CGRectMake(0, 0, 100, 20), 50);
    EXPECT_EQ(path.asRectangle()->radius, 10) << "half its shorter side at most";
    path.addLineTo({20, 20});
    EXPECT_FALSE(path.asRectangle().has_value());
    EXPECT_EQ(CGPath::withRoundedRect(CGRectMake(0, 0, 100, 20), 0).elements(),
              CGPath::withRect(CGRectMake(0, 0, 100, 20)).elements());
}

TEST(CGPathTest, TheBoundsOfABrokenPathAreNoNumber) {
    CGPath path;
    path.moveTo({0, 0});
    path.addLineTo({std::numeric_limits<double>::quiet_NaN(), 5});
    path.addLineTo({5, 5});
    EXPECT_TRUE(std::isnan(path.boundingBox().size.width));
}

} // namespace
