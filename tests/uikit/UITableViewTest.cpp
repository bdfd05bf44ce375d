#include "tests/uikit/TableFixture.h"

#include <limits>
#include <random>

using namespace support;

namespace {

double varied(NSIndexPath path) {
    return 320.0 * (20 + (path.row * 53 + path.section * 29) % 140) + 100;
}

/// Headers and rows follow each other in reading order without gap (but for footers) or overlap and cover the screen;
/// every row shows itself, as tall as it needs.
void expectTiling(const ListOnScreen& screen) {
    UITableView& table = *screen.table;
    ASSERT_FALSE(table.visibleCells().empty());
    const CGFloat width = table.bounds().size.width;
    CGFloat end = table.subviews().front()->frame().minY();
    EXPECT_LE(end, std::max(table.bounds().minY(), 0.0) + 20);
    for (const auto& view : table.subviews()) {
        const CGRect frame = view->frame();
        const auto* cell = dynamic_cast<const ListCell*>(view.get());
        EXPECT_NEAR(frame.minY(), end + (cell == nullptr && view != table.subviews().front() ? 20 : 0), 1e-6);
        EXPECT_EQ(frame.size.width, width);
        if (cell != nullptr) {
            EXPECT_EQ(frame, table.rectForRowAtIndexPath(cell->shown));
            EXPECT_NEAR(frame.size.height, std::ceil(screen.list->area(cell->shown) / width), 1.0 / 3);
            EXPECT_EQ(cell->contentView()->frame(), (CGRect{{}, frame.size}));
        }
        end = frame.maxY();
    }
    EXPECT_GE(end, std::min(table.bounds().maxY(), table.contentSize().height) - 20);
}

CGFloat placeOnScreen(const UIView& view) {
    return view.convertPointToView({}, nullptr).y;
}

} // namespace

TEST(UITableView, TilesSelfSizingRowsAtEveryWidth) {
    for (const CGFloat width : {320.0, 375.0, 430.0}) {
        ListOnScreen screen({6, 6, 0, 6}, {width, 600});
        screen.list->area = varied;
        screen.table->setContentInset({10, 0, 80, 0});
        screen.layout();
        EXPECT_EQ(screen.table->subviews()[0]->frame(), (CGRect{{0, 0}, {width, 30}}));
        for (int step = 0; step < 60; ++step) {
            screen.scrollBy(41);
            expectTiling(screen);
        }
        EXPECT_EQ(screen.table->indexPathsForVisibleRows().back(), (NSIndexPath{3, 5}));
        EXPECT_NEAR(screen.table->bounds().maxY(), screen.table->contentSize().height + 80, 1.0 / 3);
    }
}

TEST(UITableView, JumpsNowhereWhenRowsAboveTurnOutTallerOrShorter) {
    ListOnScreen screen({2000, 0, 3000, 5000});
    screen.list->area = varied;
    screen.layout();
    screen.scrollTo(screen.table->rectForRowAtIndexPath({3, 10}).minY());
    std::mt19937 random{3};
    for (int step = 0; step < 100; ++step) {
        const ListCell& middle = screen.cell(2);
        const NSIndexPath path = middle.shown;
        const CGFloat place = placeOnScreen(middle);
        const CGFloat distance = static_cast<CGFloat>(random() % 100) - 70;
        screen.scrollBy(distance);
        expectTiling(screen);
        EXPECT_EQ(screen.table->cellForRowAtIndexPath(path).get(), &middle);
        EXPECT_NEAR(placeOnScreen(middle), place - distance, 1e-6);
    }
    EXPECT_EQ(screen.cell(0).shown.section, 2) << "the test scrolls up across a section";
    const ListCell& first = screen.cell(0);
    const CGFloat place = placeOnScreen(first);
    const auto finger = screen.touchDown({100, 40});
    for (CGFloat y = 60; y <= 240; y += 20) {
        screen.move(finger, {100, y});
        screen.layout();
    }
    EXPECT_NEAR(placeOnScreen(first), place + 200, 1e-6) << "follows the finger";
    screen.scrollTo(1e9);
    EXPECT_EQ(screen.table->indexPathsForVisibleRows().back(), (NSIndexPath{3, 4999}));
}

TEST(UITableView, MeasuresItsRowsAgainForANewWidthAndKeepsTheTopRowInPlace) {
    ListOnScreen screen({40, 40});
    screen.list->area = varied;
    screen.layout();
    screen.scrollTo(1800);
    screen.scrollBy(placeOnScreen(screen.cell(1)) + 20);
    const NSIndexPath top = screen.cell(0).shown;
    for (const CGSize size : {CGSize{430, 480}, CGSize{320, 200}}) {
        screen.resize(size);
        EXPECT_EQ(screen.cell(0).shown, top);
        EXPECT_NEAR(placeOnScreen(screen.cell(0)), -20, 1e-6);
        expectTiling(screen);
    }
}

TEST(UITableView, CostsNoMoreForManyRowsOrSectionsThanForFew) {
    const auto playThrough = [](const std::vector<int>& rows) {
        ListOnScreen screen(rows);
        screen.layout();
        screen.table->reloadData();
        screen.layout();
        for (int step = 0; step < 40; ++step) {
            screen.scrollBy(20);
        }
        std::map<std::string, int>& asked = screen.list->asked;
        EXPECT_EQ(asked["rows"], 2 * static_cast<int>(rows.size())) << "once a section and reload";
        EXPECT_LE(screen.nib->made, 480 / 60 + 2) << "no more than fit the screen";
        EXPECT_LE(asked["cell"], (800 + 2 * 480) / 60 + 2) << "once for each row that comes into sight";
        return std::vector<int>{screen.nib->made, asked["cell"], asked["height"], asked["header"]};
    };
    EXPECT_EQ(playThrough({100'000}), playThrough({100}));
    EXPECT_EQ(playThrough(std::vector<int>(10'000, 1)), playThrough(std::vector<int>(50, 1)));
}

TEST(UITableView, AsksForAHeaderOnceWhileItIsSeenAndDropsItWhenItLeaves) {
    ListOnScreen screen({2, 20});
    screen.layout();
    EXPECT_EQ(screen.list->asked["header"], 2);
    const std::weak_ptr<UIView> first = screen.table->subviews()[0];
    screen.scrollBy(29);
    EXPECT_FALSE(first.expired());
    screen.scrollBy(1);
    EXPECT_TRUE(first.expired()) << "scrolled out by its last pixel";
    screen.scrollBy(-10);
    EXPECT_EQ(screen.list->asked["header"], 3);
    ListOnScreen collapsed({4});
    collapsed.list->headerHeight = [](int) { return 2.2250738585072014e-308; };
    collapsed.list->area = [](NSIndexPath) { return 0; };
    collapsed.list->height = [](NSIndexPath path) { return path.row == 0 ? UITableViewAutomaticDimension : 69; };
    collapsed.layout();
    EXPECT_EQ(collapsed.table->contentSize(), (CGSize{320, 44 + 3 * 69 + 20}));
    EXPECT_EQ(collapsed.list->asked["header"], 0);
}

TEST(UITableView, ReloadsWithFreshCountsAndKeepsTheOffsetAsFarAsItCan) {
    ListOnScreen screen({50});
    screen.layout();
    screen.scrollTo(600);
    const auto reload = [&screen](const std::vector<int>& rows) {
        screen.list->rows = rows;
        screen.table->reloadData();
        screen.layout();
        return screen.table->contentOffset().y;
    };
    EXPECT_LT(screen.table->contentSize().height, 30 + 50 * 60 + 20);
    screen.list->during = [&](const std::string& callback, UITableView& table) {
        if (callback == "header height" && screen.list->asked[callback] == 2) {
            table.reloadData();
        }
    };
    EXPECT_EQ(reload({50}), 600) << "although it reloads while it is counted";
    EXPECT_EQ(screen.table->contentSize().height, 30 + 50 * 60 + 20) << "learns from the rows seen before";
    EXPECT_EQ(reload({10}), 30 + 10 * 60 + 20 - 480);
    EXPECT_EQ(screen.table->indexPathsForVisibleRows().back(), (NSIndexPath{0, 9}));
    screen.list->area = [](NSIndexPath) { return 320.0 * 90; };
    EXPECT_EQ(reload({10}), 170) << "also at the end of what turns out longer";
    EXPECT_EQ(reload({}), 0);
    EXPECT_TRUE(screen.table->subviews().empty());
    EXPECT_LE(screen.nib->made, 10) << "reloading uses the cells again";
}

TEST(UITableView, HighlightsTheRowUnderTheFingerAndChoosesItOnce) {
    ListOnScreen screen({200});
    screen.layout();
    const auto cell = screen.table->cellForRowAtIndexPath({0, 1});
    const auto finger = screen.touchDown({100, 100});
    EXPECT_TRUE(cell->isHighlighted() && !cell->isSelected());
    screen.lift(finger, {104, 96});
    EXPECT_TRUE(!cell->isHighlighted() && cell->isSelected());
    screen.tap({100, 10}); // a header
    screen.tap({100, 200});
    EXPECT_FALSE(cell->isSelected());
    screen.lift(screen.touchDown({100, 88}), {100, 95}); // from one row to the next
    for (const UITouchPhase phase : {UITouchPhase::cancelled, UITouchPhase::moved}) {
        const auto other = screen.touchDown({100, 120});
        EXPECT_TRUE(cell->isHighlighted());
        screen.move(other, {100, 80}, phase);
        EXPECT_FALSE(cell->isHighlighted());
        screen.lift(other, {100, 120});
    }
    EXPECT_EQ(screen.list->selections, (std::vector<NSIndexPath>{{0, 1}, {0, 2}}));
    screen.scrollTo(3000);
    for (const auto& visible : screen.table->visibleCells()) {
        EXPECT_FALSE(visible->isSelected()) << "the choice stays with its row, not with its cell";
    }
    screen.scrollTo(0);
    EXPECT_TRUE(screen.table->cellForRowAtIndexPath({0, 2})->isSelected());
}

TEST(UITableView, FollowsAFingerThatLeavesItAndTakesItsRowAway) {
    ListOnScreen screen({200});
    screen.layout();
    const auto finger = screen.touchDown({100, 100});
    for (CGFloat y = 90; y > -100; y -= 10) { // the row that was touched leaves the list on the way
        screen.move(finger, {100, y});
        screen.layout();
    }
    EXPECT_EQ(screen.table->contentOffset().y, 190);
    screen.lift(finger, {100, -90});
    EXPECT_TRUE(screen.list->selections.empty());
}

TEST(UITableView, SurvivesADataSourceThatAnswersWildly) {
    constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
    constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
    const auto play = [](ListOnScreen& screen) {
        for (const CGFloat y : {0.0, 1e9, 1e300, 30.0, -1e300}) {
            screen.scrollTo(y);
            EXPECT_LE(screen.table->visibleCells().size(), 1500u);
        }
    };
    ListOnScreen flat({1'000'000'000});
    flat.list->height = [](NSIndexPath) { return 0.0; };
    play(flat);
    ListOnScreen strange({-7, 1'000'000'000, 2'000'000'000});
    strange.list->height = [](NSIndexPath path) { return path.row % 2 == 0 ? nan : infinity; };
    strange.list->headerHeight = [](int section) { return section == 0 ? nan : section == 1 ? -infinity : 1e18; };
    strange.list->footerHeight = -3;
    for (const CGFloat length : {480.0, nan, infinity, 1e12, 0.0, -5.0}) {
        strange.resize({length, length});
        play(strange);
    }
}

TEST(UITableView, StopsForACellItCannotMake) {
    ListOnScreen screen({5});
    const auto dequeue = [&screen](const std::string& identifier) {
        (void)screen.table->dequeueReusableCellWithIdentifierForIndexPath(identifier, {0, 0});
    };
    EXPECT_DEATH(dequeue("other"), "No nib is registered for the cell reuse identifier \"other\"");
    screen.nib->objects = [] { return ListNib::Objects{std::make_shared<UIView>()}; };
    EXPECT_DEATH(dequeue("row"), "nib \"ListCell\", registered for the reuse identifier \"row\"");
    screen.nib->objects = [] { return Failure{"Row.xib:7: no such class"}; };
    EXPECT_DEATH(dequeue("row"), "\"row\": Row.xib:7: no such class");
}
