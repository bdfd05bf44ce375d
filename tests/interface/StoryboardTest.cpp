#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controllers/UIStoryboard.h"
#include "platform/uikit/controls/UIControl.h"
#include "tests/interface/InterfaceFixture.h"

namespace {

const std::string scenes = R"(<scene><objects>
<viewController id="first" customClass="MessagesViewController" sceneMemberID="viewController"/></objects></scene>
<scene><objects><viewController storyboardIdentifier="CategoriesVC" id="second" customClass="CategoriesVC"
  sceneMemberID="viewController"><view key="view"><subviews><button id="b"><connections>
   <action selector="btnBackWithSender:" destination="second"/>
   <action selector="btnLetsPlayWithSender:" destination="second" eventType="valueChanged"/>
   <action selector="anything:" destination="responder" eventType="touchDown"/></connections></button>
  <label id="l" text="Friends"/><tableView><connections><outlet property="dataSource" destination="second"/>
   <outlet property="delegate" destination="second"/></connections></tableView></subviews>
  <viewLayoutGuide key="safeArea" id="safe"/><constraints><constraint firstItem="safe" firstAttribute="bottom"
   secondItem="b" secondAttribute="bottom" constant="12" id="k"/></constraints></view>
 <connections><outlet property="lblDropDown" destination="l"/><outlet property="cnBottomOfLetsPlay" destination="k"/>
 </connections></viewController><placeholder placeholderIdentifier="IBFirstResponder" id="responder"/></objects></scene>)";

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
    EXPECT_EQ(sourceLocationOf(*initial)->place, (TextPlace{4, 1}));
    EXPECT_EQ(initial->storyboard(), storyboard);
    EXPECT_TRUE(initial->view());
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
    const auto button = std::dynamic_pointer_cast<UIControl>(made->view()->subviews()[0]);
    for (const unsigned event : {UIControlEventTouchUpInside, UIControlEventValueChanged, UIControlEventTouchDown}) {
        button->sendActionsForControlEvents(event);
    }
    // No event type means touch up inside; for a touch down nobody is first responder.
    EXPECT_EQ(made->sent, (std::vector<std::string>{"back", "play"}));
}

TEST_F(Storyboard, KeepsTheViewsOfTwoInstancesApartAndLetsThemGo) {
    auto one = screen();
    const auto two = screen();
    const std::weak_ptr<UIView> viewOne = one->view();
    EXPECT_EQ(one->lblDropDown->superview(), one->view().get());
    EXPECT_EQ(two->lblDropDown->superview(), two->view().get());
    const std::weak_ptr<UIViewController> controller = std::exchange(one, nullptr);
    EXPECT_TRUE(controller.expired());
    EXPECT_TRUE(viewOne.expired());
}

class StoryboardDeathTest : public Storyboard {
protected:
    /// Its initial controller, and that one's view.
    void expectStop(const std::string& text, const std::string& report) const {
        EXPECT_DEATH((void)board(text)->instantiateInitialViewController()->view(), "Main.storyboard:" + report);
    }
};

TEST_F(StoryboardDeathTest, StopsForAMissingSceneOrFileWithItsPlace) {
    const std::string place = "2:1: error: <document>: ";
    expectStop(storyboardWith("", scenes), place + "the storyboard has no initial controller");
    expectStop(storyboardWith("none", scenes), place + "the storyboard has no initial controller");
    expectStop(nibWith("<view/>"), place + "a nib stands where a storyboard is expected");
    expectStop("<document", "1:1: error: the > of this tag is missing");
    const auto storyboard = board(storyboardWith("", scenes));
    EXPECT_DEATH((void)storyboard->instantiateViewControllerWithIdentifier("CategorysVC"),
                 place + "there is no scene with the identifier \"CategorysVC\"; did you mean CategoriesVC\\?");
    EXPECT_DEATH((void)UIStoryboard::storyboardWithNameBundle("Other", bundle())->instantiateInitialViewController(),
                 "Other.storyboard: error: .* No such file");
}

TEST_F(StoryboardDeathTest, StopsForAFaultInASceneWithItsPlace) {
    const auto expectStopIn = [&](const std::string& controller, const std::string& report) {
        expectStop(storyboardWith("c", "<scene><objects>\n" + controller + "</objects></scene>"), report);
    };
    expectStopIn("<view id=\"c\" sceneMemberID=\"viewController\"/>",
                 "4:1: error: <view id=\"c\">: UIView is no contr");
    const std::string start = "<viewController id=\"c\" sceneMemberID=\"viewController\">\n";
    expectStopIn(start + "<view key=\"view\"><subviews><lable id=\"l\"/></subviews></view></viewController>",
                 "5:28: error: <lable id=\"l\">: there are no objects of this kind here; did you mean label\\?");
    expectStopIn(start + "<viewController key=\"view\" id=\"w\"/></viewController>",
                 "5:1: error: <viewController id=\"w\">: UIViewController is no view");
}

} // namespace
