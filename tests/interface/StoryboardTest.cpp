#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controllers/UIStoryboard.h"
#include "tests/interface/InterfaceFixture.h"
#include "tests/interface/StandIns.h"

namespace {

const std::string scenes = R"(<scene sceneID="s1"><objects>
<viewController id="first" customClass="MessagesViewController" sceneMemberID="viewController"/></objects></scene>
<scene sceneID="s2"><objects>
<viewController storyboardIdentifier="CategoriesVC" id="second" customClass="CategoriesVC" sceneMemberID="viewController">
 <view key="view" id="root"><subviews>
   <button id="b"><connections><action selector="btnBackWithSender:" destination="second" id="a1"/>
     <action selector="btnLetsPlayWithSender:" destination="second" eventType="valueChanged" id="a2"/>
     <action selector="anything:" destination="responder" eventType="touchDown" id="a3"/></connections></button>
   <label id="l" text="Friends"/>
   <tableView id="t"><connections><outlet property="dataSource" destination="second" id="o1"/>
     <outlet property="delegate" destination="second" id="o2"/></connections></tableView></subviews>
  <viewLayoutGuide key="safeArea" id="safe"/>
  <constraints><constraint firstItem="safe" firstAttribute="bottom" secondItem="b" secondAttribute="bottom" constant="12"
    id="k"/></constraints></view>
 <connections><outlet property="lblDropDown" destination="l" id="o3"/>
  <outlet property="cnBottomOfLetsPlay" destination="k" id="o4"/></connections>
</viewController><placeholder placeholderIdentifier="IBFirstResponder" id="responder" sceneMemberID="firstResponder"/>
</objects></scene>)";

class Storyboard : public InterfaceFixture {
protected:
    [[nodiscard]] std::shared_ptr<UIStoryboard> board(const std::string& text) const {
        write("Main.storyboard", text);
        return UIStoryboard::storyboardWithNameBundle("Main", bundle());
    }
    [[nodiscard]] std::shared_ptr<StandInScreen> screen() const {
        return std::dynamic_pointer_cast<StandInScreen>(
            board(storyboardWith("first", scenes))->instantiateViewControllerWithIdentifier("CategoriesVC"));
    }
};

TEST_F(Storyboard, MakesControllersAndConnectsThemWhenTheirViewIsFirstAskedFor) {
    const auto storyboard = board(storyboardWith("first", scenes));
    const auto initial = storyboard->instantiateInitialViewController();
    EXPECT_TRUE(std::dynamic_pointer_cast<StandInMessages>(initial));
    EXPECT_EQ(initial->storyboard(), storyboard);
    EXPECT_TRUE(initial->view());
    EXPECT_EQ(sourceLocationOf(*initial)->place.line, 4);
    const auto made = screen();
    ASSERT_TRUE(made);
    EXPECT_FALSE(made->isViewLoaded());
    EXPECT_FALSE(made->lblDropDown.get());
    const auto view = made->view();
    ASSERT_EQ(view->subviews().size(), 3u);
    EXPECT_EQ(made->lblDropDown->text(), "Friends");
    EXPECT_EQ(made->cnBottomOfLetsPlay->constant(), 12);
    EXPECT_EQ(made->cnBottomOfLetsPlay->first().guide, LayoutGuide::safeArea);
    const auto table = std::dynamic_pointer_cast<UITableView>(view->subviews()[2]);
    EXPECT_EQ(table->dataSource(), made);
    EXPECT_EQ(table->delegate(), made);
}

TEST_F(Storyboard, LetsControlsSendTheirActionsForTheirEvents) {
    const auto made = screen();
    const auto button = std::dynamic_pointer_cast<UIButton>(made->view()->subviews()[0]);
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(made->sent, std::vector<std::string>{"back"}); // no event type means touch up inside
    button->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_EQ(made->sent.back(), "play");
    button->sendActionsForControlEvents(UIControlEventTouchDown); // nobody is first responder
    EXPECT_EQ(made->sent.size(), 2u);
}

TEST_F(Storyboard, KeepsTheViewsOfTwoInstancesApartAndLetsThemGo) {
    auto one = screen();
    const auto two = std::dynamic_pointer_cast<StandInScreen>(
        one->storyboard()->instantiateViewControllerWithIdentifier("CategoriesVC"));
    const std::weak_ptr<UIView> viewOne = one->view();
    EXPECT_NE(one->view(), two->view());
    EXPECT_EQ(one->lblDropDown->superview(), one->view().get());
    EXPECT_EQ(two->lblDropDown->superview(), two->view().get());
    const std::weak_ptr<UIViewController> controller = std::exchange(one, nullptr);
    EXPECT_TRUE(controller.expired());
    EXPECT_TRUE(viewOne.expired());
}

using StoryboardDeathTest = Storyboard;

TEST_F(StoryboardDeathTest, StopsForAMissingSceneOrFileWithItsPlace) {
    const auto storyboard = board(storyboardWith("", scenes));
    const std::string place = "Main.storyboard:2:1: error: <document>: ";
    EXPECT_DEATH((void)storyboard->instantiateViewControllerWithIdentifier("CategorysVC"),
                 place + "there is no scene with the identifier \"CategorysVC\"; did you mean CategoriesVC\\?");
    EXPECT_DEATH((void)storyboard->instantiateInitialViewController(),
                 place + "the storyboard has no initial controller");
    EXPECT_DEATH((void)board(storyboardWith("none", scenes))->instantiateInitialViewController(),
                 "no initial controller");
    EXPECT_DEATH((void)board(nibWith("<view/>"))->instantiateInitialViewController(),
                 place + "a nib stands where a storyboard is expected");
    EXPECT_DEATH((void)board("<document")->instantiateInitialViewController(),
                 "Main.storyboard:1:9: error: malformed XML");
    EXPECT_DEATH((void)UIStoryboard::storyboardWithNameBundle("Other", bundle())->instantiateInitialViewController(),
                 "Other.storyboard: error: .* No such file");
}

TEST_F(StoryboardDeathTest, StopsForAFaultInASceneWithItsPlace) {
    const auto stopsFor = [&](const std::string& controller, const std::string& report) {
        const auto faulty = board(storyboardWith("c", "<scene><objects>\n" + controller + "</objects></scene>"));
        EXPECT_DEATH((void)faulty->instantiateInitialViewController()->view(), "Main.storyboard:" + report);
    };
    stopsFor("<view id=\"c\" sceneMemberID=\"viewController\"/>",
             "4:1: error: <view id=\"c\">: UIView is no controller");
    const std::string start = "<viewController id=\"c\" sceneMemberID=\"viewController\">\n";
    stopsFor(start + "<view key=\"view\"><subviews><lable id=\"l\"/></subviews></view></viewController>",
             "5:28: error: <lable id=\"l\">: unknown element; did you mean label\\?");
    stopsFor(start + "<viewController key=\"view\" id=\"w\"/></viewController>",
             "5:1: error: <viewController id=\"w\">: UIViewController is no view");
}

} // namespace
