#include "simulator/conversation/ElementSearch.h"

#include "platform/uikit/UIKitClasses.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/controls/UILabel.h"

#include <gtest/gtest.h>

namespace {

class ElementSearchTest : public testing::Test {
protected:
    ElementSearchTest() { registerUIKitClasses(); } // for the names in messages
    template <class View = UIView>
    std::shared_ptr<View> addView(const CGRect& frame, const std::shared_ptr<UIColor>& color = nullptr) {
        const auto view = std::make_shared<View>(frame);
        view->setBackgroundColor(color);
        window->addSubview(view);
        return view;
    }
    std::shared_ptr<UILabel> addLabel(const std::string& text, const CGRect& frame) {
        const auto label = addView<UILabel>(frame);
        label->setText(text);
        return label;
    }
    std::shared_ptr<UILabel> addLabel(const std::string& text, CGFloat y = 10) {
        return addLabel(text, CGRectMake(10, y, 100, 20));
    }
    std::optional<ScreenElement> find(const std::string& text, std::optional<int> index = std::nullopt) {
        return ElementSearch(*window).find({text, std::nullopt, index});
    }
    bool finds(const std::string& text) { return find(text).has_value(); }

    std::shared_ptr<UIWindow> window = std::make_shared<UIWindow>(CGRectMake(0, 300, 200, 200));
};

TEST_F(ElementSearchTest, FindsATextLiterallyBeforeItTriesItAsAPattern) {
    const auto pattern = addLabel("Adult 188", 10);
    const auto literal = addLabel("Adult (18+)", 50);
    EXPECT_EQ(find("Adult (18+)")->view(), literal);
    literal->removeFromSuperview();
    EXPECT_EQ(find("Adult (18+)")->view(), pattern);
}

TEST_F(ElementSearchTest, MatchesAPatternWholeWithoutRegardToCase) {
    addLabel("Hold My Gaze\nNow");
    EXPECT_TRUE(finds("hold.*now"));
    EXPECT_TRUE(finds("Hold My Gaze Now")) << "a line break counts as a space";
    EXPECT_FALSE(finds("Hold"));
    EXPECT_FALSE(finds("(unclosed"));
}

TEST_F(ElementSearchTest, CountsMatchesFromTopToBottomThenFromLeftToRight) {
    const auto low = addLabel("Play", 100);
    const auto right = addLabel("Play", CGRectMake(120, 10, 50, 20));
    const auto left = addLabel("Play", 10);
    EXPECT_EQ(find("Play")->view(), left);
    EXPECT_EQ(find("Play", 1)->view(), right);
    EXPECT_EQ(find("Play", 2)->view(), low);
    EXPECT_FALSE(find("Play", 3));
}

TEST_F(ElementSearchTest, FindsByIdentifierAndByTheLabelForAssistiveTools) {
    const auto view = addView(CGRectMake(0, 0, 50, 50));
    view->setAccessibilityIdentifier("box");
    view->setAccessibilityLabel("Player group");
    EXPECT_TRUE(finds("Player group"));
    EXPECT_TRUE(ElementSearch(*window).find({std::nullopt, "box", std::nullopt}));
    EXPECT_FALSE(ElementSearch(*window).find({"Friends", "box", std::nullopt})) << "all that is given must hold";
}

TEST_F(ElementSearchTest, LeavesOutWhatIsHiddenTransparentOrOutside) {
    const auto label = addLabel("Play");
    label->setHidden(true);
    EXPECT_FALSE(finds("Play"));
    EXPECT_TRUE(ElementSearch(*window).exists({"Play", std::nullopt, std::nullopt}));
    label->setHidden(false);
    label->setAlpha(0.005);
    EXPECT_FALSE(finds("Play"));
    label->setAlpha(1);
    label->setFrame(CGRectMake(10, 195, 100, 20));
    EXPECT_FALSE(finds("Play")) << "a quarter in view is too little";
    label->setFrame(CGRectMake(10, 185, 100, 20));
    EXPECT_TRUE(finds("Play"));
}

TEST_F(ElementSearchTest, LeavesOutWhatAnAncestorHidesOrClipsAndWhatAViewInFrontPaintsOver) {
    const auto box = addView(CGRectMake(0, 0, 100, 50));
    box->addSubview(addLabel("Play", CGRectMake(0, 60, 100, 20)));
    EXPECT_TRUE(finds("Play")) << "a view that does not clip shows what stands out of it";
    box->setClipsToBounds(true);
    EXPECT_FALSE(finds("Play"));
    box->setClipsToBounds(false);
    box->setAlpha(0);
    EXPECT_FALSE(finds("Play"));
    box->setAlpha(1);
    const auto cover = addView(CGRectMake(0, 0, 200, 200), UIColor::whiteColor());
    EXPECT_FALSE(finds("Play"));
    cover->setBackgroundColor(UIColor::clearColor());
    EXPECT_TRUE(finds("Play"));
    cover->setBackgroundColor(UIColor::whiteColor());
    window->bringSubviewToFront(*box);
    EXPECT_TRUE(finds("Play"));
}

TEST_F(ElementSearchTest, TouchesBesideWhatCoversTheMiddleAndThroughTheButtonThatSpansAText) {
    const auto box = addView(CGRectMake(0, 0, 200, 50));
    box->addSubview(addLabel("Play", CGRectMake(0, 0, 100, 20)));
    addView(CGRectMake(40, 0, 25, 50), UIColor::whiteColor());
    const std::optional<CGPoint> point = find("Play")->pointToTouch();
    ASSERT_TRUE(point);
    EXPECT_TRUE(point->x < 40 || point->x >= 65) << point->x;
    EXPECT_EQ(window->hitTestWithEvent(*point, nullptr), box);
    addView<UIButton>(CGRectMake(0, 0, 200, 50));
    EXPECT_TRUE(find("Play")->pointToTouch());
}

TEST_F(ElementSearchTest, SaysWhatWouldTakeTheTouchInstead) {
    addView(CGRectMake(0, 0, 200, 50))->addSubview(addLabel("Play", CGRectMake(0, 0, 100, 20)));
    addView(CGRectMake(0, 0, 200, 200))->setAccessibilityIdentifier("glass");
    EXPECT_FALSE(find("Play")->pointToTouch());
    EXPECT_EQ(find("Play")->receiver(), "a UIView with id 'glass'");
}

TEST_F(ElementSearchTest, GivesUpOnPatternsThatWouldTakeTheStackOrForever) {
    addLabel(std::string(100'000, 'a'));
    for (const std::string& pattern :
         {std::string("(a|b)*c"), std::string("((.*)*)*x"), std::string("((a{1000}){1000}){1000}"),
          std::string(5000, '(') + 'a' + std::string(5000, ')'), std::string(50'000, '.'), std::string("\xff.*")}) {
        EXPECT_FALSE(finds(pattern)) << pattern.substr(0, 30);
    }
    EXPECT_TRUE(finds("a.*a"));
}

} // namespace
