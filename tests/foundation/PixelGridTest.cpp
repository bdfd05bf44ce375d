#include "platform/foundation/PixelGrid.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(PixelGridTest, RoundsToPixelsButForTheErrorsOfSums) {
    constexpr PixelGrid grid{3};
    constexpr CGFloat hair = 1e-5; // less than the tolerance
    struct Case {
        CGFloat pixels;
        Pixels nearest;
        Pixels under;
        Pixels holding;
    };
    for (const Case& one : std::initializer_list<Case>{{7, 7, 7, 7},
                                                       {7 - hair, 7, 7, 7},
                                                       {7 + hair, 7, 7, 7},
                                                       {7.2, 7, 7, 8},
                                                       {7.5 - hair, 8, 7, 8},
                                                       {-7.5, -7, -8, -7},
                                                       {-7.2, -7, -8, -7}}) {
        EXPECT_EQ(grid.nearest(one.pixels / 3), one.nearest) << one.pixels;
        EXPECT_EQ(grid.under(one.pixels / 3), one.under) << one.pixels;
        EXPECT_EQ(grid.holding(one.pixels / 3), one.holding) << one.pixels;
        EXPECT_EQ(grid.isWhole(one.pixels / 3), one.under == one.holding) << one.pixels;
    }
    EXPECT_EQ(grid.holding(CGSize{1.1, 2}), (CGSize{4 / 3.0, 2}));
}

TEST(PixelGridTest, RectanglesKeepTheirEdgesTogether) {
    constexpr PixelGrid grid{2};
    const CGRect rect = CGRectMake(0.3, -0.3, 10, 10);
    EXPECT_EQ(grid.snapped(rect), CGRectMake(0.5, -0.5, 10, 10));
    EXPECT_EQ(grid.touchedBy(rect), (PixelRect{0, -1, 21, 21}));
    EXPECT_EQ(grid.inside(rect), (PixelRect{1, 0, 19, 19}));
    EXPECT_EQ(grid.points(PixelRect{1, 0, 19, 19}), CGRectMake(0.5, 0, 9.5, 9.5));
    EXPECT_EQ(grid.snapped(rect).maxX(), grid.snapped(CGRectMake(10.3, 0, 5, 5)).minX());
}

TEST(PixelGridTest, WildNumbersComeIntoRange) {
    constexpr PixelGrid grid{3};
    constexpr CGFloat endless = std::numeric_limits<CGFloat>::infinity();
    EXPECT_EQ(grid.nearest(std::numeric_limits<CGFloat>::quiet_NaN()), 0);
    EXPECT_EQ(grid.nearest(endless), -grid.nearest(-endless));
    EXPECT_GT(grid.holding(1e300), 0);
    EXPECT_GT(grid.touchedBy(CGRectMake(-1e308, -endless, endless, endless)).width, 0);
    EXPECT_TRUE(grid.touchedBy(CGRectMake(endless, 0, 5, 5)).isEmpty());
}

} // namespace
