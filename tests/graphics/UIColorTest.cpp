#include "platform/graphics/UIColor.h"

#include "platform/graphics/AssetCatalog.h"
#include "platform/graphics/DrawingContext.h"
#include "platform/graphics/RecordingCanvas.h"

#include <gtest/gtest.h>

namespace {

class OneColor : public AssetCatalog {
public:
    std::shared_ptr<UIColor> colorNamed(std::string_view name) override {
        return name == "AppGreen" ? UIColor::colorWithRedGreenBlueAlpha(0, 1, 0, 1) : nullptr;
    }
    std::shared_ptr<UIImage> imageNamed(std::string_view) override { return nullptr; }
};

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

TEST(UIColorTest, SettingAColorOutsideOfDrawingDoesNothing) {
    UIColor::blueColor()->set();
    EXPECT_EQ(DrawingContext::current(), nullptr);
}

TEST(UIColorTest, NamedColorsComeFromTheCurrentCatalogue) {
    EXPECT_EQ(UIColor::colorNamed("AppGreen"), nullptr);
    AssetCatalog::setCurrent(std::make_shared<OneColor>());
    EXPECT_EQ(*UIColor::colorNamed("AppGreen"), UIColor(0, 1, 0, 1));
    EXPECT_EQ(UIColor::colorNamed("TextColor"), nullptr);
    AssetCatalog::setCurrent(nullptr);
}

TEST(UIColorTest, SystemColorsDifferInTheDarkAndUnknownOnesAreAbsent) {
    const auto label = UIColor::systemColorNamed("labelColor");
    EXPECT_EQ(label->resolved(UIUserInterfaceStyle::light), (RGBA{0, 0, 0, 1}));
    EXPECT_EQ(label->resolved(UIUserInterfaceStyle::dark), (RGBA{1, 1, 1, 1}));
    EXPECT_EQ(*UIColor::systemColorNamed("grayColor"), *UIColor::grayColor());
    EXPECT_EQ(UIColor::systemColorNamed("systemPlaidColor"), nullptr);
}

TEST(UIColorTest, ColorsAreEqualOnlyWhenBothAppearancesAre) {
    EXPECT_EQ(UIColor(1, 1, 1, 1), UIColor(RGBA{1, 1, 1, 1}, RGBA{1, 1, 1, 1}));
    EXPECT_FALSE(UIColor(1, 1, 1, 1) == UIColor(RGBA{1, 1, 1, 1}, RGBA{0, 0, 0, 1}));
}

} // namespace
