#include "platform/graphics/UIColor.h"

#include "platform/graphics/DrawingContext.h"
#include "tests/support/RecordingCanvas.h"

#include <gtest/gtest.h>

namespace {

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

} // namespace
