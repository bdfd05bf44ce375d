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
    const CGFloat width = table.bounds().size.width;
    NSIndexPath next = paths.front();
    CGFloat end = table.rectForRowAtIndexPath(next).minY();
    EXPECT_LE(end, std::max(table.bounds().minY(), 0.0) + 30 + 20);
    for (const NSIndexPath& path : paths) {
        if (next.row == screen.list->rows[static_cast<std::size_t>(next.section)]) {
            next = {next.section + 1, 0};
            end += screen.list->footerHeight + table.rectForHeaderInSection(next.section).size.height;
        }
        const auto cell = table.cellForRowAtIndexPath(path);
        EXPECT_EQ(path, next);
        EXPECT_EQ(dynamic_cast<ListCell&>(*cell).shown, path);
        EXPECT_EQ(cell->frame(), table.rectForRowAtIndexPath(path));
        EXPECT_NEAR(cell->frame().minY(), end, 1e-6);
        EXPECT_EQ(cell->frame().size.width, width);
        EXPECT_NEAR(cell->frame().size.height, std::ceil(screen.list->area(path) / width), pixel);
        EXPECT_EQ(cell->contentView()->frame(), (CGRect{{}, cell->bounds().size}));
        end = cell->frame().maxY();
        ++next.row;
    }
    EXPECT_GE(end, std::min(table.bounds().maxY(), table.contentSize().height) - 30 - 20);
}

} // namespace

TEST(UITableView, TilesSelfSizingRowsAtEveryWidth) {
    for (const CGFloat width : {320.0, 375.0, 430.0}) {
        ListOnScreen screen({6, 6, 6, 6, 6}, {width, 600});
        screen.list->area = varied;
        screen.layout();
        expectTiling(screen);
        EXPECT_EQ(screen.table->subviews()[0]->frame(), (CGRect{{0, 0}, {width, 30}}));
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

TEST(UITableView, CostsNoMoreForManyRowsOrSectionsThanForFew) {
    const auto playThrough = [](const std::vector<int>& rows) {
        ListOnScreen screen(rows);
        screen.layout();
        screen.table->reloadData();
        screen.layout();
        for (int step = 0; step < 40; ++step) {
            screen.scrollBy(20);
        }
        const List& list = *screen.list;
        EXPECT_EQ(list.rowCountsAsked, 2 * static_cast<int>(rows.size())) << "once a section and reload";
        EXPECT_EQ(list.headerHeightsAsked, 2 * static_cast<int>(rows.size()));
        EXPECT_LE(screen.nib->made, 480 / 60 + 2) << "no more than fit the screen";
        EXPECT_LE(list.cellsAsked, (800 + 2 * 480) / 60 + 2) << "once for each row that comes into sight";
        return std::vector<int>{screen.nib->made, list.cellsAsked, list.heightsAsked,
                                static_cast<int>(list.headersAsked.size())};
    };
    EXPECT_EQ(playThrough(std::vector<int>(5, 2000)), playThrough({50}));
    EXPECT_EQ(playThrough(std::vector<int>(10'000, 1)), playThrough(std::vector<int>(50, 1)));
}

TEST(UITableView, AsksForAHeaderOnceWhileItIsSeenAndDropsItWhenItLeaves) {
    ListOnScreen screen({2, 20});
    screen.layout();
    EXPECT_EQ(screen.list->headersAsked, (std::vector<int>{0, 1}));
    const std::weak_ptr<UIView> first = screen.table->subviews()[0];
    screen.scrollBy(20);
    EXPECT_EQ(first.lock()->superview(), screen.table.get());
    screen.scrollBy(10);
    EXPECT_TRUE(first.expired()) << "scrolled out by its last pixel";
    screen.scrollBy(-10);
    EXPECT_EQ(screen.list->headersAsked, (std::vector<int>{0, 1, 0}));
}

TEST(UITableView, GivesFixedRowsTheHeightTheyAskForAndCollapsedHeadersNoView) {
    ListOnScreen screen({4});
    screen.list->headerHeight = [](int) { return 2.2250738585072014e-308; };
    screen.list->footerHeight = 0;
    screen.list->height = [](NSIndexPath) { return 69.0; };
    screen.layout();
    EXPECT_EQ(screen.table->contentSize(), (CGSize{320, 4 * 69.0}));
    EXPECT_EQ(screen.table->cellForRowAtIndexPath({0, 3})->frame(), (CGRect{{0, 3 * 69.0}, {320, 69}}));
    EXPECT_TRUE(screen.list->headersAsked.empty());
}

TEST(UITableView, ReloadsWithFreshCountsAndKeepsTheOffsetAsFarAsItCan) {
    ListOnScreen screen({50});
    screen.layout();
    screen.scrollTo(600);
    const auto reload = [&screen](const std::vector<int>& rows) {
        screen.list->rows = rows;
        screen.table->reloadData();
        EXPECT_TRUE(screen.table->visibleCells().empty());
        screen.layout();
        return screen.table->contentOffset().y;
    };
    EXPECT_EQ(reload({50}), 600);
    EXPECT_EQ(reload({10}), 30 + 10 * 60 + 20 - 480);
    EXPECT_EQ(screen.table->indexPathsForVisibleRows().back(), (NSIndexPath{0, 9}));
    EXPECT_EQ(reload({}), 0);
    EXPECT_TRUE(screen.table->subviews().empty());
    EXPECT_LE(screen.nib->made, 10) << "reloading uses the cells again";
    reload({50});
    screen.list.reset(); // the data source goes
    screen.tap({100, 100});
    screen.layout();
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
    class OtherNib : public CountingNib {
    public:
        explicit OtherNib(Result<std::vector<std::shared_ptr<NSObject>>> objects) : m_objects(std::move(objects)) {}
        Result<std::vector<std::shared_ptr<NSObject>>> instantiateWithOwner(const std::shared_ptr<NSObject>&) override {
            return m_objects;
        }

    private:
        Result<std::vector<std::shared_ptr<NSObject>>> m_objects;
    };
    ListOnScreen screen({5});
    const auto dequeue = [&screen](const std::string& identifier) {
        (void)screen.table->dequeueReusableCellWithIdentifierForIndexPath(identifier, {0, 0});
    };
    EXPECT_DEATH(dequeue("other"), "No nib is registered for the cell reuse identifier \"other\"");
    const std::vector<std::shared_ptr<NSObject>> noCell{std::make_shared<UIView>()};
    screen.table->registerNibForCellReuseIdentifier(std::make_shared<OtherNib>(noCell), "view");
    EXPECT_DEATH(dequeue("view"), "nib \"ListCell\", registered for the reuse identifier \"view\"");
    screen.table->registerNibForCellReuseIdentifier(std::make_shared<OtherNib>(Failure{"Row.xib:7: no such class"}),
                                                    "broken");
    EXPECT_DEATH(dequeue("broken"), "\"broken\": Row.xib:7: no such class");
}
