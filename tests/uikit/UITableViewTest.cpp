#include "tests/support/Output.h"
#include "tests/uikit/TableFixture.h"

#include <limits>

using namespace support;

namespace {

constexpr CGFloat pixel = 1.0 / 3;

double varied(NSIndexPath path) {
    return 320.0 * (30 + (path.row * 37 + path.section * 11) % 90);
}

/// Headers, rows and footers follow each other without gap or overlap, cover the screen, and every row shows itself.
void expectTiling(const ListOnScreen& screen) {
    UITableView& table = *screen.table;
    const std::vector<NSIndexPath> paths = table.indexPathsForVisibleRows();
    ASSERT_FALSE(paths.empty());
    std::optional<NSIndexPath> before;
    for (const NSIndexPath& path : paths) {
        const auto cell = table.cellForRowAtIndexPath(path);
        EXPECT_EQ(dynamic_cast<ListCell&>(*cell).shown, path);
        EXPECT_EQ(cell->frame(), table.rectForRowAtIndexPath(path));
        EXPECT_EQ(cell->frame().size.width, table.bounds().size.width);
        EXPECT_NEAR(cell->frame().size.height, std::ceil(screen.list->area(path) / table.bounds().size.width), pixel);
        EXPECT_EQ(cell->contentView()->frame(), (CGRect{{}, cell->bounds().size}));
        if (before) {
            const bool follows = path.section == before->section ? path.row == before->row + 1 : path.row == 0;
            EXPECT_TRUE(follows) << "after " << before->section << "." << before->row;
            const CGFloat gap =
                path.section == before->section
                    ? 0
                    : screen.list->footerHeight + table.rectForHeaderInSection(path.section).size.height;
            EXPECT_NEAR(cell->frame().minY(), table.rectForRowAtIndexPath(*before).maxY() + gap, 1e-6);
        }
        before = path;
    }
    const CGRect visible = table.bounds();
    EXPECT_LE(table.rectForRowAtIndexPath(paths.front()).minY(), std::max(visible.minY(), 0.0) + 30 + 20);
    const CGFloat end = std::min(visible.maxY(), table.contentSize().height);
    EXPECT_GE(table.rectForRowAtIndexPath(paths.back()).maxY(), end - 30 - 20);
}

} // namespace

TEST(UITableView, TilesSelfSizingRowsAtEveryWidth) {
    for (const CGFloat width : {320.0, 375.0, 430.0}) {
        ListOnScreen screen({6, 6, 6, 6, 6}, {width, 600});
        screen.list->area = varied;
        screen.layout();
        expectTiling(screen);
        EXPECT_EQ(screen.table->headerViewForSection(0)->frame(), (CGRect{{0, 0}, {width, 30}}));
        for (int step = 0; step < 60; ++step) {
            screen.scrollBy(41);
            expectTiling(screen);
        }
        EXPECT_EQ(screen.table->indexPathsForVisibleRows().back(), (NSIndexPath{4, 5}));
    }
}

TEST(UITableView, MeasuresItsRowsAgainForANewWidthAndKeepsTheTopRowInPlace) {
    ListOnScreen screen({40, 40});
    screen.list->area = varied;
    screen.layout();
    for (int step = 0; step < 30; ++step) {
        screen.scrollBy(60);
    }
    const Seen top = rowsSeen(screen).front();
    screen.resize({430, 480});
    EXPECT_EQ(rowsSeen(screen).front().path, top.path);
    EXPECT_NEAR(rowsSeen(screen).front().top, top.top, 1e-6);
    expectTiling(screen);
    screen.resize({320, 200});
    EXPECT_EQ(rowsSeen(screen).front().path, top.path);
    expectTiling(screen);
}

TEST(UITableView, GivesFixedRowsTheHeightTheyAskFor) {
    ListOnScreen screen({4});
    screen.list->headerHeight = [](int) { return 2.2250738585072014e-308; };
    screen.list->footerHeight = 0;
    screen.list->height = [](NSIndexPath) { return 69.0; };
    screen.table->setContentInset({8, 0, 9, 0});
    screen.layout();
    EXPECT_EQ(screen.table->contentOffset().y, -8);
    EXPECT_EQ(screen.table->contentSize(), (CGSize{320, 4 * 69.0}));
    EXPECT_EQ(screen.table->cellForRowAtIndexPath({0, 3})->frame(), (CGRect{{0, 3 * 69.0}, {320, 69}}));
    EXPECT_TRUE(screen.list->headersAsked.empty()) << "a collapsed header has no view";
    EXPECT_EQ(screen.nib->made, 4);
}

TEST(UITableView, MakesNoMoreCellsThanFitTheScreenAndUsesThemAgain) {
    ListOnScreen screen({10'000});
    screen.layout();
    const std::size_t fitting = 480 / 60 + 1;
    EXPECT_LE(screen.table->visibleCells().size(), fitting);
    for (int step = 0; step < 300; ++step) {
        screen.scrollBy(20);
    }
    EXPECT_LE(screen.nib->made, static_cast<int>(fitting) + 1);
    const int rowsSeenInAll = (300 * 20 + 480) / 60 + 1;
    EXPECT_LE(screen.list->cellsAsked, rowsSeenInAll);
    EXPECT_LE(screen.list->heightsAsked, rowsSeenInAll);
    const auto last = screen.table->visibleCells().back();
    EXPECT_GT(dynamic_cast<ListCell&>(*last).reuses, 0);
    EXPECT_EQ(screen.table->subviews().size(), screen.table->visibleCells().size());
}

TEST(UITableView, CostsNoMoreForManyRowsOrSectionsThanForFew) {
    const auto playThrough = [](const std::vector<int>& rows) {
        ListOnScreen screen(rows);
        screen.layout();
        screen.table->reloadData();
        screen.layout();
        for (int step = 0; step < 20; ++step) {
            screen.scrollBy(20);
        }
        EXPECT_EQ(screen.list->rowCountsAsked, 2 * static_cast<int>(rows.size())) << "once a section and reload";
        EXPECT_EQ(screen.list->headerHeightsAsked, 2 * static_cast<int>(rows.size()));
        return std::vector<int>{screen.nib->made, screen.list->cellsAsked, screen.list->heightsAsked,
                                static_cast<int>(screen.list->headersAsked.size())};
    };
    EXPECT_EQ(playThrough(std::vector<int>(5, 2000)), playThrough({30}));
    EXPECT_EQ(playThrough(std::vector<int>(10'000, 1)), playThrough(std::vector<int>(30, 1)));
}

TEST(UITableView, AsksForAHeaderOnceWhileItIsSeenAndDropsItWhenItLeaves) {
    ListOnScreen screen({2, 20});
    screen.layout();
    EXPECT_EQ(screen.list->headersAsked, (std::vector<int>{0, 1}));
    const std::weak_ptr<UIView> first = screen.table->headerViewForSection(0);
    screen.scrollBy(20);
    EXPECT_EQ(first.lock()->superview(), screen.table.get());
    EXPECT_EQ(screen.list->headersAsked.size(), 2u);
    screen.scrollBy(10);
    EXPECT_TRUE(first.expired()) << "scrolled out by its last pixel";
    EXPECT_EQ(screen.table->headerViewForSection(0), nullptr);
    screen.scrollBy(-10);
    EXPECT_EQ(screen.list->headersAsked, (std::vector<int>{0, 1, 0}));
}

TEST(UITableView, ReloadsWithFreshCountsAndKeepsTheOffsetAsFarAsItCan) {
    ListOnScreen screen({50});
    screen.layout();
    screen.scrollTo(600);
    screen.table->reloadData();
    EXPECT_TRUE(screen.table->visibleCells().empty());
    screen.layout();
    EXPECT_EQ(screen.table->contentOffset().y, 600);
    screen.list->rows = {10};
    screen.table->reloadData();
    screen.layout();
    EXPECT_EQ(screen.table->numberOfRowsInSection(0), 10);
    EXPECT_EQ(screen.table->contentOffset().y, 30 + 10 * 60 + 20 - 480);
    EXPECT_EQ(screen.table->indexPathsForVisibleRows().back(), (NSIndexPath{0, 9}));
    screen.list->rows = {};
    screen.table->reloadData();
    screen.layout();
    EXPECT_EQ(screen.table->contentOffset().y, 0);
    EXPECT_TRUE(screen.table->subviews().empty());
    EXPECT_LE(screen.nib->made, 10) << "reloading uses the cells again";
}

TEST(UITableView, IsEmptyOnceItsDataSourceOrDelegateIsGone) {
    ListOnScreen screen({50});
    screen.layout();
    screen.list.reset();
    screen.touch({100, 100});
    screen.layout();
    EXPECT_EQ(screen.table->numberOfSections(), 0);
    EXPECT_TRUE(screen.table->visibleCells().empty());
    EXPECT_EQ(screen.table->contentSize().height, 0);
}

TEST(UITableView, PlacesItsOwnHeaderAndFooterAroundTheSections) {
    ListOnScreen screen({2});
    const auto header = std::make_shared<UIView>(CGRect{{}, {10, 40}});
    const auto footer = std::make_shared<UIView>(CGRect{{}, {10, 25}});
    screen.table->setTableHeaderView(header);
    screen.table->setTableFooterView(footer);
    screen.layout();
    EXPECT_EQ(header->frame(), (CGRect{{0, 0}, {320, 40}}));
    EXPECT_EQ(screen.table->rectForRowAtIndexPath({0, 0}), (CGRect{{0, 70}, {320, 60}}));
    EXPECT_EQ(screen.table->indexPathForRowAtPoint({5, 70}), (NSIndexPath{0, 0}));
    EXPECT_FALSE(screen.table->indexPathForRowAtPoint({5, 69}));
    EXPECT_EQ(footer->frame(), (CGRect{{0, 210}, {320, 25}}));
    screen.table->setTableHeaderView(nullptr);
    screen.layout();
    EXPECT_EQ(header->superview(), nullptr);
    EXPECT_EQ(screen.table->contentSize().height, 195);
}

TEST(UITableView, SurvivesADataSourceThatAnswersWildly) {
    constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
    constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
    const auto play = [](ListOnScreen& screen) {
        screen.layout();
        for (const CGFloat y : {1e9, 1e300, 30.0, -1e300}) {
            screen.scrollTo(y);
            EXPECT_LE(screen.table->visibleCells().size(), 1500u);
        }
    };
    ListOnScreen many({-7, 1'000'000'000, 2'000'000'000, -1});
    play(many);
    ListOnScreen flat({1'000'000'000});
    flat.list->height = [](NSIndexPath) { return 0.0; };
    play(flat);
    ListOnScreen strange({5, 5, 5});
    strange.list->height = [](NSIndexPath path) { return path.row % 2 == 0 ? nan : infinity; };
    strange.list->headerHeight = [](int section) { return section == 0 ? nan : section == 1 ? -infinity : 1e18; };
    strange.list->footerHeight = -3;
    play(strange);
    ListOnScreen shapeless({50});
    for (const CGFloat length : {nan, infinity, 1e12, 0.0, -5.0}) {
        shapeless.resize({length, length});
        play(shapeless);
    }
}

TEST(UITableView, StopsForACellItCannotMake) {
    ListOnScreen screen({5});
    EXPECT_DEATH((void)screen.table->dequeueReusableCellWithIdentifierForIndexPath("other", {0, 0}),
                 "No nib is registered for the cell reuse identifier \"other\"");
    class ViewNib : public CountingNib {
        Result<std::vector<std::shared_ptr<NSObject>>> instantiateWithOwner(const std::shared_ptr<NSObject>&) override {
            return std::vector<std::shared_ptr<NSObject>>{std::make_shared<UIView>()};
        }
    };
    class BrokenNib : public CountingNib {
        Result<std::vector<std::shared_ptr<NSObject>>> instantiateWithOwner(const std::shared_ptr<NSObject>&) override {
            return Failure{"Row.xib:7: <label>: no such class"};
        }
    };
    screen.table->registerNibForCellReuseIdentifier(std::make_shared<ViewNib>(), "view");
    EXPECT_DEATH((void)screen.table->dequeueReusableCellWithIdentifierForIndexPath("view", {0, 0}),
                 "nib \"ListCell\", registered for the reuse identifier \"view\"");
    screen.table->registerNibForCellReuseIdentifier(std::make_shared<BrokenNib>(), "broken");
    EXPECT_DEATH((void)screen.table->dequeueReusableCellWithIdentifierForIndexPath("broken", {0, 0}),
                 "\"broken\": Row.xib:7: <label>: no such class");
}

TEST(UITableView, ShowsCellsThatWereNotDequeuedAndGivesThemAHeight) {
    class Plain : public List {
    public:
        std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView&, NSIndexPath) override {
            return std::make_shared<UITableViewCell>(UITableViewCellStyle::standard, "");
        }
    };
    ListOnScreen screen({100});
    const auto plain = std::make_shared<Plain>();
    plain->rows = {100};
    screen.table->setDataSource(plain);
    screen.layout();
    EXPECT_EQ(screen.table->visibleCells().front()->frame().size.height, 44);
    const std::weak_ptr<UITableViewCell> first = screen.table->visibleCells().front();
    screen.scrollBy(1000);
    EXPECT_TRUE(first.expired()) << "without an identifier it is not kept for later";
}
