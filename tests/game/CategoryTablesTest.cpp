#include "platform/uikit/controllers/UINib.h"
#include "tests/game/GameFixture.h"
#include "ui/Colors.h"
#include "ui/ModeHeaderView.h"
#include "ui/ModeTblCell.h"
#include "ui/VibeDropdownTblCell.h"

#include <limits>
#include <typeinfo>

namespace {

constexpr CGFloat collapsed = std::numeric_limits<CGFloat>::min();

/// A nib of these objects; one may have the id a00-00-000.
std::string nibOf(const std::string& objects) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<document type="com.apple.InterfaceBuilder3.CocoaTouch.XIB" version="3.0">
    <objects>
        <placeholder placeholderIdentifier="IBFilesOwner" id="-1" userLabel="File's Owner"/>
        )" +
           objects + R"(
    </objects>
</document>)";
}

/// A header whose title would be shown.
const std::string headerView = R"(<view id="b00-00-000" customClass="ModeHeaderView">
    <rect key="frame" x="0" y="0" width="9" height="9"/>
    <subviews><label id="b00-00-001"><rect key="frame" x="0" y="0" width="9" height="9"/></label></subviews>
    <connections><outlet property="lblHeaderTitle" destination="b00-00-001" id="b00-00-002"/></connections></view>)";

const std::string plainView = R"(<view id="a00-00-000"><rect key="frame" x="0" y="0" width="9" height="9"/></view>)";

/// A nib of a plain cell with a view in it.
std::string cellNibOf(const std::string& identifier) {
    return nibOf(R"(<tableViewCell reuseIdentifier=")" + identifier + R"(" id="a00-00-000">
        <rect key="frame" x="0" y="0" width="300" height="50"/>
        <tableViewCellContentView key="contentView" tableViewCell="a00-00-000" id="a00-00-001">
            <rect key="frame" x="0" y="0" width="300" height="50"/>
            <subviews><view id="a00-00-002"><rect key="frame" x="0" y="0" width="9" height="9"/></view></subviews>
        </tableViewCellContentView></tableViewCell>)");
}

/// Writes down, when its look changes, how many rows the list has: none after it was reloaded.
class WatchedLabel : public UILabel {
public:
    explicit WatchedLabel(UITableView& list) : UILabel(CGRectMake(0, 0, 9, 9)), m_list(list) {}
    void invalidate(const CGRect&, UIView*) override { rowsAtChange = m_list.visibleCells().size(); }
    std::size_t rowsAtChange = 0;

private:
    UITableView& m_list;
};

using CategoryTables = GameTest;
using SectionHeaders = GameTest;
using GroupChoice = GameTest;
using ModeLaunch = GameTest;

} // namespace

TEST_F(CategoryTables, ReportTheirSizes) {
    openAndSettle();
    CategoriesVC& shown = *screen();
    UITableView& modes = *shown.tableView;
    UITableView& groups = *shown.tblDropDown();
    EXPECT_EQ(shown.numberOfSectionsInTableView(modes), 2);
    EXPECT_EQ(shown.tableViewNumberOfRowsInSection(modes, 0), 2);
    EXPECT_EQ(shown.tableViewNumberOfRowsInSection(modes, 1), 1);
    EXPECT_EQ(shown.tableViewHeightForRowAtIndexPath(modes, {0, 0}), UITableViewAutomaticDimension);
    EXPECT_EQ(shown.tableViewHeightForHeaderInSection(modes, 0), 30);
    EXPECT_EQ(shown.tableViewHeightForHeaderInSection(modes, 1), collapsed) << "without a title";
    EXPECT_EQ(shown.tableViewHeightForFooterInSection(modes, 1), 20);
    const auto other = std::make_shared<UITableView>(); // questions take it for the dropdown, a choice for the modes
    for (UITableView* list : {&groups, other.get()}) {
        EXPECT_EQ(shown.numberOfSectionsInTableView(*list), 1);
        EXPECT_EQ(shown.tableViewNumberOfRowsInSection(*list, 0), 4);
        EXPECT_EQ(shown.tableViewHeightForRowAtIndexPath(*list, {0, 0}), 69);
        EXPECT_EQ(shown.tableViewHeightForHeaderInSection(*list, 0), collapsed);
        EXPECT_EQ(shown.tableViewHeightForFooterInSection(*list, 0), 0);
        EXPECT_EQ(shown.tableViewViewForHeaderInSection(*list, 0), nullptr);
    }
    shown.tableViewDidSelectRowAtIndexPath(*other, {1, 0});
    for (const NSIndexPath beyond : {NSIndexPath{0, 2}, {1, 1}, {2, 0}, {-1, 0}, {0, -1}}) {
        shown.tableViewDidSelectRowAtIndexPath(modes, beyond);
    }
    EXPECT_EQ(host->links().size(), 1U);
}

TEST_F(CategoryTables, ShowAPlainEmptyRowWhereTheNibHoldsAnotherCell) {
    replace("ModeTblCell.xib", cellNibOf("ModeTblCell"));
    openAndSettle();
    const auto cell = screen()->tableViewCellForRowAtIndexPath(*screen()->tableView, {0, 0});
    const UITableViewCell& plain = *cell;
    EXPECT_EQ(typeid(plain), typeid(UITableViewCell));
    EXPECT_TRUE(cell->contentView()->subviews().empty());
}

TEST_F(CategoryTables, StopTheProgramWhereTheDropdownsNibHoldsAnotherCell) {
    replace("VibeDropdownTblCell.xib", cellNibOf("VibeDropdownTblCell"));
    open();
    EXPECT_DEATH(host->activate(nullptr),
                 "Fatal error: the nib VibeDropdownTblCell does not hold a VibeDropdownTblCell\n$");
    (void)support::takeStandardOutput();
}

TEST_F(SectionHeaders, AreNewViewsWithTheirTitlesOrNone) {
    openAndSettle();
    CategoriesVC& shown = *screen();
    const auto view = shown.tableViewViewForHeaderInSection(*shown.tableView, 0);
    EXPECT_NE(view, shown.tableViewViewForHeaderInSection(*shown.tableView, 0));
    const auto header = std::dynamic_pointer_cast<ModeHeaderView>(view);
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->lblHeaderTitle->text(), "Adult (18+) titled");
    EXPECT_EQ(shown.tableViewViewForHeaderInSection(*shown.tableView, 1), nullptr);
}

TEST_F(SectionHeaders, StopTheProgramWhereTheNibDoesNotYieldThem) {
    for (const std::string& nib : {nibOf(plainView + headerView), nibOf(""), std::string("no document")}) {
        replace("ModeHeaderView.xib", nib);
        open();
        host->activate(nullptr);
        EXPECT_DEATH(host->settle(),
                     "Fatal error: Could not load view with type ModeHeaderView: file ExtensionBundle, line 18\n$");
    }
    (void)support::takeStandardOutput();
}

TEST_F(SectionHeaders, AreTheFirstOfSeveralObjectsOfTheirNib) {
    replace("ModeHeaderView.xib", nibOf(headerView + plainView));
    openAndSettle();
    EXPECT_NE(screen()->tableViewViewForHeaderInSection(*screen()->tableView, 0), nullptr);
}

TEST_F(SectionHeaders, NeedNoNibWhileNoSectionHasATitle) {
    replace("ModeHeaderView.xib", "no document");
    replace("Adult (18+).json", R"([{"sectionTitle": "", "items":
        [{"icon": "", "title": "T", "subtitle": "", "isSelected": false}]}])");
    openAndSettle();
    EXPECT_EQ(screen()->tableView->visibleCells().size(), 1U);
}

TEST_F(GroupChoice, ShowsTheGroupAndMarksOnlyItsRow) {
    openAndSettle();
    CategoriesVC& shown = *screen();
    std::filesystem::remove_all(folder.path()); // no file is read again
    const CurrentOption options[] = {CurrentOption::Adult_18_Plus, CurrentOption::Friends, CurrentOption::Couple,
                                     CurrentOption::Family};
    for (const int row : {3, 1, 1, 2, 0}) {
        choose(row);
        const std::string& title = rawValue(options[row]);
        SCOPED_TRACE(title);
        EXPECT_EQ(shown.currentOption(), options[row]);
        EXPECT_EQ(shown.lblDropDown->text(), title);
        EXPECT_EQ(marksOf(shown), title + ";");
        EXPECT_EQ(titlesOf(shown), "|" + title + " titled|");
        EXPECT_EQ(&shown.sections()[0].items(), &shown.arrAllCategories().at(title)[0].items()) << "no text is copied";
        const auto cell = std::dynamic_pointer_cast<ModeTblCell>(shown.tableView->cellForRowAtIndexPath({0, 1}));
        EXPECT_EQ(cell->lblDesc->text(), "of " + title);
    }
}

TEST_F(GroupChoice, StylesTheRowsByTheirMark) {
    openAndSettle();
    UITableView& groups = *screen()->tblDropDown();
    const auto cellOf = [&](int row) {
        return std::dynamic_pointer_cast<VibeDropdownTblCell>(groups.cellForRowAtIndexPath({0, row}));
    };
    tapBox();
    for (int row = 0; row < 4; ++row) {
        cellOf(row)->viewMain->setStrokeWidth(5); // a reused cell keeps nothing of what it was
    }
    tapRow(groups, {0, 2});
    tapBox();
    for (int row = 0; row < 4; ++row) {
        SCOPED_TRACE(row);
        const bool marked = row == 2;
        const auto cell = cellOf(row);
        ASSERT_NE(cell, nullptr);
        EXPECT_EQ(cell->imgSelected->image(), UIImage::imageNamed(marked ? "tick_selected" : "tick_not_selected"));
        EXPECT_EQ(cell->viewMain->layer()->borderWidth(), 1);
        EXPECT_EQ(cell->viewMain->layer()->shadowOpacity(), marked ? 0.3f : 0);
        EXPECT_TRUE(*cell->viewMain->strokeColor() == (marked ? *UIColor::whiteColor() : *colorFromHex("DDDDDD")));
    }
}

TEST_F(GroupChoice, OfARowBeyondTheListGivesFamilyAndMarksNothing) {
    openAndSettle();
    CategoriesVC& shown = *screen();
    tapBox();
    shown.tableViewDidSelectRowAtIndexPath(*shown.tblDropDown(), {0, 4});
    host->settle();
    EXPECT_EQ(shown.currentOption(), CurrentOption::Family);
    EXPECT_EQ(marksOf(shown), "");
    EXPECT_EQ(shown.lblDropDown->text(), "Adult (18+)");
    EXPECT_EQ(titlesOf(shown), "|Family titled|");
    EXPECT_TRUE(shown.viewDropDown->isHidden());
}

TEST_F(GroupChoice, ReloadsTheListBeforeItShowsTheTitleAndThatOfAGameTypeAfterwards) {
    open();
    for (const MoreGameTypes gameType : {MoreGameTypes::None, MoreGameTypes::Dating}) {
        const auto screen = screenByItself();
        screen->setSelectedMoreGameType(gameType);
        host->window().setRootViewController(screen);
        host->settle();
        screen->btnDropdownWithSender(nullptr);
        host->settle();
        UITableView& list = *screen->tblDropDown();
        const auto title = std::make_shared<WatchedLabel>(list);
        const auto panel = std::make_shared<WatchedLabel>(list);
        screen->view()->addSubview(title);
        screen->view()->addSubview(panel);
        screen->lblDropDown = title;
        screen->viewDropDown = panel;
        screen->tableViewDidSelectRowAtIndexPath(list, {0, 2});
        const bool isGroup = gameType == MoreGameTypes::None;
        EXPECT_EQ(title->rowsAtChange == 0, isGroup);
        EXPECT_EQ(panel->rowsAtChange == 0, isGroup);
        EXPECT_TRUE(list.visibleCells().empty());
    }
}

TEST_F(ModeLaunch, LeavesTheTappedRowSelectedAndItsModeAsItIs) {
    openAndSettle();
    UITableView& modes = *screen()->tableView;
    tapRow(modes, {1, 0});
    tapRow(modes, {1, 0});
    ASSERT_EQ(host->links().size(), 2U);
    EXPECT_EQ(host->links()[1].url.absoluteString(),
              "https://truths-and-dares.example/Category?mainCategory=Adult%20(18+)&sectionCategory=&sectionItem=Third"
              "&icon=none");
    EXPECT_EQ(modes.indexPathForSelectedRow(), (NSIndexPath{1, 0}));
    EXPECT_FALSE(screen()->sections()[1].items()[0].isSelected);
}
