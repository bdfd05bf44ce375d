#include "platform/graphics/UIColor.h"

#include "platform/graphics/DrawingContext.h"
#include "platform/graphics/RecordingCanvas.h"

#include <gtest/gtest.h>

namespace {

TEST(UIColorTest, ADynamicColorResolvesInTheAppearanceThatIsDrawn) {
    const auto color = UIColor::dynamicColor({1, 1, 1, 1}, {0, 0, 0, 1});
    EXPECT_EQ(color->components(), (RGBA{1, 1, 1, 1}));
    RecordingCanvas canvas;
    const DrawingContext dark(canvas, UIUserInterfaceStyle::dark);
    EXPECT_EQ(color->components(), (RGBA{0, 0, 0, 1}));
}

TEST(UIColorTest, SettingAColorSetsBothCurrentColorsOfTheInnermostDrawing) {
    RecordingCanvas canvas;
    DrawingContext outer(canvas, UIUserInterfaceStyle::light);
    {
        const DrawingContext inner(canvas, UIUserInterfaceStyle::light);
        UIColor::blueColor()->set();
        EXPECT_EQ(inner.fillColor(), (RGBA{0, 0, 1, 1}));
        EXPECT_EQ(inner.strokeColor(), (RGBA{0, 0, 1, 1}));
    }
    EXPECT_EQ(DrawingContext::current(), &outer);
    EXPECT_EQ(outer.fillColor(), (RGBA{0, 0, 0, 1}));
}

TEST(UIColorTest, SystemColorsDifferInTheDarkAndUnknownOnesAreAbsent) {
    const auto label = UIColor::systemColorNamed("labelColor");
    EXPECT_EQ(label->resolved(UIUserInterfaceStyle::light), (RGBA{0, 0, 0, 1}));
    EXPECT_EQ(label->resolved(UIUserInterfaceStyle::dark), (RGBA{1, 1, 1, 1}));
    EXPECT_EQ(UIColor::systemColorNamed("systemPlaidColor"), nullptr);
}

} // namespace
