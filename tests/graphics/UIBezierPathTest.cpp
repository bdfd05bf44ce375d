#include "platform/graphics/UIBezierPath.h"

#include "platform/graphics/DrawingContext.h"
#include "tests/support/RecordingCanvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(UIBezierPathTest, DrawsItsPiecesInOrderWithItsStyleAndTheCurrentColor) {
    UIBezierPath path;
    path.moveToPoint({1, 2});
    path.addQuadCurveToPointControlPoint({5, 6}, {3, 4});
    path.addLineToPoint({7, 8});
    path.setLineWidth(40);
    path.setLineJoinStyle(CGLineJoin::round);
    path.setLineCapStyle(CGLineCap::round);
    path.stroke(); // outside of drawing
    UIColor::blueColor()->set();
    RecordingCanvas canvas;
    const DrawingContext context(canvas, UIUserInterfaceStyle::light);
    path.fill();
    UIColor::blueColor()->set();
    path.stroke();
    EXPECT_EQ(canvas.text(), "fill path(M 1 2 Q 3 4, 5 6 L 7 8) rgba(0 0 0 1)\n"
                             "stroke path(M 1 2 Q 3 4, 5 6 L 7 8) rgba(0 0 1 1) width 40 join round cap round\n");
}

TEST(UIColorTest, ResolvesInTheAppearanceAndIsSetForTheInnermostDrawing) {
    const auto label = UIColor::systemColorNamed("labelColor");
    EXPECT_EQ(label->components(), (RGBA{0, 0, 0, 1}));
    RecordingCanvas canvas;
    const DrawingContext outer(canvas, UIUserInterfaceStyle::light);
    {
        const DrawingContext inner(canvas, UIUserInterfaceStyle::dark);
        label->set();
        EXPECT_EQ(inner.color(), (RGBA{1, 1, 1, 1}));
    }
    EXPECT_EQ(DrawingContext::current(), &outer);
    EXPECT_EQ(outer.color(), (RGBA{0, 0, 0, 1}));
    EXPECT_EQ(UIColor::systemColorNamed("systemPlaidColor"), nullptr);
}

TEST(CGPathTest, KnowsWhetherItIsARoundedRectangleAndWhetherItHasBounds) {
    CGPath path = CGPath::withRoundedRect(CGRectMake(0, 0, 100, 20), 50);
    EXPECT_EQ(path.asRectangle()->radius, 10) << "half its shorter side at most";
    EXPECT_EQ(path.offsetBy(3, 4).asRectangle()->rect, CGRectMake(3, 4, 100, 20));
    path.addLineTo({20, 20});
    EXPECT_FALSE(path.asRectangle().has_value());
    EXPECT_EQ(CGPath::withRoundedRect(CGRectMake(0, 0, 100, 20), 0).elements(),
              CGPath::withRect(CGRectMake(0, 0, 100, 20)).elements());
    path.addLineTo({std::numeric_limits<double>::quiet_NaN(), 5});
    path.addLineTo({5, 5});
    EXPECT_TRUE(std::isnan(path.boundingBox().size.width));
}

} // namespace
