#include "platform/uikit/window/ViewPainter.h"

#include "platform/graphics/PNG.h"
#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "tests/support/RecordingCanvas.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/uikit/ViewFixture.h"

#include <gmock/gmock.h>

#include <limits>

using testing::HasSubstr;
using testing::Not;

namespace {

class ViewPainterTest : public support::OnScreen {
protected:
    [[nodiscard]] std::shared_ptr<UIView> addCard(const CGRect& frame) const {
        const auto card = add(frame);
        card->setBackgroundColor(UIColor::whiteColor());
        return card;
    }
    [[nodiscard]] std::string painted(const CGRect& dirty = CGRectMake(0, 0, 320, 480),
                                      UIUserInterfaceStyle style = UIUserInterfaceStyle::light) const {
        RecordingCanvas canvas;
        ViewPainter(canvas, style).paint(*window, dirty);
        return canvas.text();
    }
    /// The texts stand in this order.
    void expectOrder(std::initializer_list<const char*> parts) const {
        const std::string text = painted();
        std::size_t from = 0;
        for (const char* part : parts) {
            const std::size_t found = text.find(part, from);
            ASSERT_NE(found, std::string::npos) << part << " after " << from << " in\n" << text;
            from = found + 1;
        }
    }
};

} // namespace

TEST_F(ViewPainterTest, StacksShadowBackgroundSubviewsAndBorderAndCutsWhatIsInAClippedView) {
    const auto card = addCard(CGRectMake(10, 20, 100, 50));
    card->layer()->setCornerRadius(8);
    card->layer()->setBorderWidth(2);
    card->layer()->setBorderColor(UIColor::blueColor());
    card->layer()->setShadowOpacity(0.5f);
    add(std::make_shared<UILabel>(CGRectMake(5, 5, 90, 40)), card)->setText("hello");
    expectOrder({"shadow", "fill roundedRect(0 0 100 50 r8) rgba(1 1 1 1)", "hello", "stroke"});
    card->setClipsToBounds(true);
    expectOrder({"fill", "clip roundedRect(0 0 100 50 r8)", "hello", "stroke"});
    EXPECT_THAT(painted(), Not(HasSubstr("shadow")));
}

TEST_F(ViewPainterTest, LeavesOutWhatIsHiddenTransparentOrCovered) {
    const auto hidden = addCard(CGRectMake(0, 0, 10, 10));
    hidden->setHidden(true);
    const auto clear = addCard(CGRectMake(0, 0, 10, 10));
    clear->setAlpha(0);
    EXPECT_THAT(painted(), Not(HasSubstr("fill")));
    clear->setAlpha(0.25);
    EXPECT_THAT(painted(), HasSubstr("fill rect(0 0 10 10) rgba(1 1 1 0.25)"));
    static_cast<void>(add(CGRectMake(2, 2, 4, 4), clear)); // more than a background fades as a group of its size
    expectOrder({"clip rect(-1 -1 12 12)", "0.25", "fill rect(0 0 10 10) rgba(1 1 1 1)"});
    EXPECT_THAT(painted(CGRectMake(20, 20, 5, 5)), Not(HasSubstr("0.25")));
    window->setBackgroundColor(UIColor::grayColor());
    static_cast<void>(addCard(CGRectMake(0, 0, 320, 480)));
    const std::string inside = painted(CGRectMake(20, 20, 50, 50));
    EXPECT_THAT(inside, HasSubstr("rgba(1 1 1 1)"));
    EXPECT_THAT(inside, Not(HasSubstr("rgba(0.5 0.5 0.5 1)")));
}

TEST_F(ViewPainterTest, LeavesOutWhatABarAtTheLowerEndHides) {
    static_cast<void>(addCard(CGRectMake(0, 400, 30, 50)));
    static_cast<void>(addCard(CGRectMake(0, 460, 40, 10)));
    const auto bar = addCard(CGRectMake(0, 449.5, 320, 30.5));
    expectOrder({"clip rect(0 0 320 450.5)", "fill rect(0 0 30 50)", "restore", "fill rect(0 0 320 30.5)"});
    EXPECT_THAT(painted(), Not(HasSubstr("fill rect(0 0 40 10)"))) << "it is below the bar's first whole pixel";
    bar->setAlpha(0.5);
    EXPECT_THAT(painted(), HasSubstr("fill rect(0 0 40 10)"));
    bar->setAlpha(1);
    bar->setFrame(CGRectMake(0, 449.5, 320, 20)); // something is seen below it
    EXPECT_THAT(painted(), HasSubstr("fill rect(0 0 40 10)"));
}

TEST_F(ViewPainterTest, ColoursFollowTheAppearance) {
    addCard(CGRectMake(0, 0, 10, 10))->setBackgroundColor(UIColor::dynamicColor({1, 0, 0, 1}, {0, 1, 0, 1}));
    EXPECT_THAT(painted(), HasSubstr("rgba(1 0 0 1)"));
    EXPECT_THAT(painted(window->bounds(), UIUserInterfaceStyle::dark), HasSubstr("rgba(0 1 0 1)"));
}

TEST_F(ViewPainterTest, AnImageStandsWhereItsContentModeSays) {
    const support::TemporaryFolder folder;
    ASSERT_FALSE(writePNG(Bitmap(40, 40), folder.path() / "i.png"));
    const auto view = add(std::make_shared<UIImageView>(CGRectMake(0, 0, 10, 20)));
    view->setImage(
        std::make_shared<UIImage>("i", std::vector<ImageFile>{{.path = folder.path() / "i.png", .scale = 1}}));
    using enum UIViewContentMode;
    const std::pair<UIViewContentMode, const char*> places[] = {
        {scaleToFill, "(0 0 10 20)"},    {redraw, "(0 0 10 20)"},           {scaleAspectFit, "(0 5 10 10)"},
        {center, "(-15 -10 40 40)"},     {scaleAspectFill, "(-5 0 20 20)"}, {top, "(-15 0 40 40)"},
        {bottom, "(-15 -20 40 40)"},     {left, "(0 -10 40 40)"},           {right, "(-30 -10 40 40)"},
        {topLeft, "(0 0 40 40)"},        {topRight, "(-30 0 40 40)"},       {bottomLeft, "(0 -20 40 40)"},
        {bottomRight, "(-30 -20 40 40)"}};
    for (const auto& [mode, place] : places) {
        view->setContentMode(mode);
        EXPECT_THAT(painted(), HasSubstr(std::string("image \"i\" rect") + place));
    }
}

TEST_F(ViewPainterTest, OddFramesAreDrawnWithoutHarm) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const CGRect& frame : {CGRectMake(0, 0, 0, 0), CGRectMake(5, 5, -10, 20), CGRectMake(nan, nan, nan, nan),
                                CGRectMake(0, 0, infinity, infinity), CGRectMake(-1e308, 0, 1e308, 1e308)}) {
        const auto odd = addCard(frame);
        odd->layer()->setCornerRadius(9);
        odd->setClipsToBounds(true);
        add(std::make_shared<UILabel>(CGRectMake(0, 0, 10, 10)), odd)->setText("x");
        add(std::make_shared<UIImageView>(frame), odd)
            ->setImage(
                std::make_shared<UIImage>("missing", std::vector<ImageFile>{{.path = "/nowhere.png", .scale = 1}}));
        static_cast<void>(painted());
        odd->removeFromSuperview();
    }
}
