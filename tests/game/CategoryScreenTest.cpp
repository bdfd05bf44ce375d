#include "platform/runtime/ClassRegistry.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/window/UIScreen.h"
#include "tests/game/GameFixture.h"

#include <limits>

using namespace std::chrono_literals;

namespace {

enum class Panel { open, closed };
enum class Shadow { on, off };

/// What the dropdown's box and panel look like.
void expectLook(const CategoriesVC& screen, Panel panel, Shadow shadow, const char* when) {
    SCOPED_TRACE(when);
    const bool isOpen = panel == Panel::open;
    const CALayer& layer = *screen.viewDropDownButton->layer();
    EXPECT_EQ(screen.viewDropDown->isHidden(), !isOpen);
    EXPECT_EQ(layer.borderWidth(), isOpen ? 0 : 1);
    EXPECT_TRUE(*layer.borderColor() == (isOpen ? *UIColor::clearColor() : *UIColor::whiteColor()));
    EXPECT_EQ(screen.imgDropDown->image(), UIImage::imageNamed(isOpen ? "drowdown_up" : "drowdown_down"));
    EXPECT_NE(screen.imgDropDown->image(), nullptr);
    EXPECT_EQ(layer.shadowOpacity(), shadow == Shadow::on ? 0.3f : 0);
}

using CategoryScreen = GameTest;
using GameTypeMode = GameTest;

} // namespace

TEST_F(CategoryScreen, OffersFourGroupsAndNoModesUntilItsContentHasCome) {
    open();
    MainRunLoop::shared().setBackgroundLatency(100ms);
    host->activate(nullptr);
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\n");
    CategoriesVC& shown = *screen();
    EXPECT_EQ(shown.lblDropDown->text(), "Adult (18+)");
    EXPECT_EQ(marksOf(shown), "Adult (18+);");
    EXPECT_EQ(shown.heightOfTblView->constant(), 293);
    EXPECT_EQ(shown.tableView->numberOfSections(), 0);

    host->advance(200ms);
    EXPECT_EQ(shown.arrAllCategories().size(), 11U);
    EXPECT_EQ(titlesOf(shown), "|Adult (18+) titled|");
    expectLook(shown, Panel::closed, Shadow::on, "after the hand-over");
}

TEST_F(CategoryScreen, SetsItsTablesUpWhateverTheSceneSays) {
    openAndSettle();
    CategoriesVC& shown = *screen();
    UITableView& modes = *shown.tableView;
    modes.setDelegate({});
    modes.setDataSource({});
    modes.setSeparatorStyle(UITableViewCellSeparatorStyle::singleLine);
    modes.setContentInset({1, 2, 3, 4});
    modes.setShowsVerticalScrollIndicator(true);
    tapBox();
    EXPECT_NE(shown.tblDropDown()->cellForRowAtIndexPath({0, 0}), nullptr);
    shown.viewDidLoad();
    EXPECT_EQ(modes.delegate(), screen());
    EXPECT_EQ(modes.dataSource(), screen());
    EXPECT_EQ(modes.separatorStyle(), UITableViewCellSeparatorStyle::none);
    EXPECT_EQ(modes.contentInset(), (UIEdgeInsets{10, 0, 80, 0}));
    EXPECT_FALSE(modes.showsVerticalScrollIndicator());
    EXPECT_EQ(shown.tblDropDown()->cellForRowAtIndexPath({0, 0}), nullptr) << "reloaded";

    const auto list = std::make_shared<UITableView>();
    shown.setTblDropDown(list);
    EXPECT_FALSE(list->showsVerticalScrollIndicator());
    EXPECT_NE(list->dequeueReusableCellWithIdentifierForIndexPath("VibeDropdownTblCell", {0, 0}), nullptr);
}

TEST_F(CategoryScreen, LosesTheShadowOfItsBoxUntilTheButtonClosesTheDropdown) {
    openAndSettle();
    const CategoriesVC& shown = *screen();
    tapBox();
    expectLook(shown, Panel::open, Shadow::off, "opened");
    tapBox();
    expectLook(shown, Panel::closed, Shadow::on, "closed by the button");
    choose(1);
    expectLook(shown, Panel::closed, Shadow::off, "closed by a choice");
    tapBox();
    expectLook(shown, Panel::open, Shadow::off, "opened again");
    tapBox();
    expectLook(shown, Panel::closed, Shadow::on, "closed by the button again");
}

TEST_F(CategoryScreen, TellsItsTableOfNewSectionsOnALaterTurn) {
    openAndSettle();
    CategoriesVC& shown = *screen();
    shown.showSections("no such key");
    EXPECT_EQ(shown.tableView->numberOfSections(), 2);
    shown.tableViewDidSelectRowAtIndexPath(*shown.tableView, {0, 0});
    EXPECT_TRUE(host->links().empty()) << "of a row that is gone";
    EXPECT_EQ(shown.tableViewNumberOfRowsInSection(*shown.tableView, 0), 0);
    EXPECT_EQ(shown.tableViewHeightForHeaderInSection(*shown.tableView, 0), std::numeric_limits<CGFloat>::min());
    host->settle();
    EXPECT_EQ(shown.tableView->numberOfSections(), 0);
}

// The height of the device's screen is read once per process, so each of these runs in one of its own, as under ctest.

TEST_F(CategoryScreen, KeepsItsButtonTwentyPointsFromTheBottomOnAFlatDeviceReadOnce) {
    openAndSettle("375x667@2");
    EXPECT_EQ(screen()->cnBottomOfLetsPlay->constant(), 20);
    UIScreen::mainScreen().configure({375, 812}, 3);
    const auto later = screenByItself();
    host->window().setRootViewController(later);
    EXPECT_EQ(later->cnBottomOfLetsPlay->constant(), 20);
}

TEST_F(CategoryScreen, KeepsItsButtonTwentyPointsFromTheBottomAt736Points) {
    openAndSettle("8plus");
    EXPECT_EQ(screen()->cnBottomOfLetsPlay->constant(), 20);
}

TEST_F(CategoryScreen, LeavesItsButtonWhereTheLayoutHasItAt812Points) {
    openAndSettle("375x812@3");
    EXPECT_NE(screen()->cnBottomOfLetsPlay->constant(), 20);
}

TEST_F(CategoryScreen, HidesTheBarOfItsNavigationControllerAndGoesBack) {
    open();
    const auto screen = screenByItself();
    const auto root = std::make_shared<UIViewController>();
    const auto navigation = std::make_shared<UINavigationController>();
    navigation->pushViewControllerAnimated(root, false);
    navigation->pushViewControllerAnimated(screen, false);
    host->window().setRootViewController(navigation);
    EXPECT_TRUE(navigation->isNavigationBarHidden());
    screen->btnOptionsClickedWithSender(nullptr);
    screen->btnLetsPlayWithSender(nullptr);
    EXPECT_EQ(navigation->topViewController(), screen);
    screen->btnBackWithSender(nullptr);
    EXPECT_EQ(navigation->topViewController(), root);
    screen->btnBackWithSender(nullptr); // in no navigation controller any more: nothing
}

TEST_F(CategoryScreen, HasActionsAndOutletsForScenesThatConnectMore) {
    open();
    const auto screen = screenByItself();
    for (const char* action :
         {"btnDropdownWithSender:", "btnBackWithSender:", "btnOptionsClickedWithSender:", "btnLetsPlayWithSender:"}) {
        EXPECT_TRUE(respondsToSelector(*screen, action)) << action;
    }
    const ObjectClass* names = &ClassRegistry::shared().classOf(*screen);
    const auto label = std::make_shared<UILabel>();
    for (const char* name : {"lblFriends", "lblFamily", "lblCouple", "lblRandom", "viewOptions1", "viewOptions2",
                             "viewOptions3", "viewOptions4", "imgSelect1", "imgSelect2", "imgSelect3", "imgSelect4"}) {
        ASSERT_NE(names->outlets.find(name), nullptr) << name;
        const bool isLabel = name[0] == 'l';
        EXPECT_EQ((*names->outlets.find(name))(*screen, label), isLabel ? Acceptance::accepted : Acceptance::wrongType);
    }
}

TEST_F(CategoryScreen, StopsWithTheNameOfAnOutletThatTheSceneLacks) {
    open();
    EXPECT_DEATH((void)std::make_shared<CategoriesVC>()->view(), "lblDropDown");
}

TEST_F(GameTypeMode, OffersTheGameTypesInPlaceOfTheGroups) {
    open();
    const auto screen = screenByItself();
    screen->setSelectedMoreGameType(MoreGameTypes::Dating);
    host->window().setRootViewController(screen);
    EXPECT_EQ(marksOf(*screen), "Dating;");
    EXPECT_EQ(screen->lblDropDown->text(), "Dating");
    EXPECT_EQ(screen->heightOfTblView->constant(), 500);
    host->settle();
    EXPECT_EQ(titlesOf(*screen), "|Dating titled|");
    for (int row = 6; row >= 0; --row) {
        screen->btnDropdownWithSender(nullptr);
        screen->tableViewDidSelectRowAtIndexPath(*screen->tblDropDown(), {0, row});
        const std::string& title = rawValue(screen->currentOption());
        EXPECT_EQ(static_cast<int>(screen->currentOption()), static_cast<int>(CurrentOption::SpinTheBottle) + row);
        EXPECT_EQ(marksOf(*screen), title + ";");
        EXPECT_EQ(screen->lblDropDown->text(), title);
        EXPECT_TRUE(screen->viewDropDown->isHidden());
        ASSERT_FALSE(screen->sections().empty()) << title;
        EXPECT_EQ(&screen->sections()[0].items(), &screen->arrAllCategories().at(title)[0].items());
    }
    screen->tableViewDidSelectRowAtIndexPath(*screen->tblDropDown(), {0, 7});
    EXPECT_EQ(screen->currentOption(), CurrentOption::SpinTheBottle) << "a row that is not there changes nothing";
    EXPECT_EQ(marksOf(*screen), "");
}
