#include "tests/uikit/TableFixture.h"

using namespace support;

TEST(UITableViewTouches, HighlightsTheRowUnderTheFingerAndChoosesItOnce) {
    ListOnScreen screen({200});
    screen.layout();
    const auto cell = screen.table->cellForRowAtIndexPath({0, 1});
    const auto finger = screen.touchDown({100, 100});
    EXPECT_TRUE(cell->isHighlighted());
    EXPECT_FALSE(cell->isSelected());
    screen.move(finger, {104, 96});
    screen.lift(finger, {104, 96});
    EXPECT_FALSE(cell->isHighlighted());
    EXPECT_TRUE(cell->isSelected());
    EXPECT_EQ(screen.list->selections, (std::vector<NSIndexPath>{{0, 1}}));
    screen.tap({100, 200});
    EXPECT_FALSE(cell->isSelected());
    screen.tap({100, 200});
    EXPECT_EQ(screen.list->selections, (std::vector<NSIndexPath>{{0, 1}, {0, 2}, {0, 2}}));
    screen.scrollTo(3000);
    for (const auto& visible : screen.table->visibleCells()) {
        EXPECT_FALSE(visible->isSelected()) << "the choice stays with its row, not with its cell";
    }
    screen.scrollTo(0);
    EXPECT_TRUE(screen.table->cellForRowAtIndexPath({0, 2})->isSelected());
    screen.table->deselectRowAtIndexPath({0, 2});
    EXPECT_FALSE(screen.table->cellForRowAtIndexPath({0, 2})->isSelected());
}

TEST(UITableViewTouches, ScrollsInsteadOfChoosingWhenTheFingerTravels) {
    ListOnScreen screen({200});
    screen.layout();
    screen.scrollTo(300);
    const auto cell = screen.table->cellForRowAtIndexPath(*screen.table->indexPathForRowAtPoint({100, 540}));
    const auto finger = screen.touchDown({100, 240});
    EXPECT_TRUE(cell->isHighlighted());
    screen.move(finger, {100, 200});
    EXPECT_FALSE(cell->isHighlighted());
    EXPECT_EQ(screen.table->contentOffset().y, 340);
    screen.move(finger, {100, 240});
    screen.lift(finger, {100, 240});
    EXPECT_TRUE(screen.list->selections.empty());
}

TEST(UITableViewTouches, ChoosesNothingForHeadersAndCancelledTouches) {
    ListOnScreen screen({20});
    screen.layout();
    screen.tap({100, 10});
    screen.move(screen.touchDown({100, 100}), {100, 100}, UITouchPhase::cancelled);
    EXPECT_FALSE(screen.table->cellForRowAtIndexPath({0, 1})->isHighlighted());
    EXPECT_TRUE(screen.list->selections.empty());
}

TEST(UITableViewTouches, MayReloadInsideTheChoice) {
    ListOnScreen screen({4});
    screen.layout();
    screen.list->whenSelected = [](UITableView& table, NSIndexPath) { table.reloadData(); };
    screen.tap({100, 100});
    EXPECT_FALSE(screen.table->indexPathForSelectedRow());
    screen.layout();
    EXPECT_EQ(screen.table->visibleCells().size(), 4u);
    EXPECT_EQ(screen.nib->made, 4);
    EXPECT_EQ(dynamic_cast<ListCell&>(*screen.table->cellForRowAtIndexPath({0, 3})).shown, (NSIndexPath{0, 3}));
    screen.list->rows = {1};
    screen.tap({100, 100});
    screen.tap({100, 200});
    EXPECT_EQ(screen.list->selections, (std::vector<NSIndexPath>{{0, 1}, {0, 1}}))
        << "the row below is gone although no layout ran yet";
}

TEST(UITableViewTouches, MayDropTheWholeScreenInsideTheChoice) {
    ListOnScreen screen({4});
    screen.layout();
    const std::weak_ptr<UITableView> table = screen.table;
    screen.list->whenSelected = [&screen](UITableView& chosen, NSIndexPath) {
        chosen.removeFromSuperview();
        screen.table.reset();
        screen.list.reset();
    };
    const std::weak_ptr<List> list = screen.list;
    screen.tap({100, 100});
    EXPECT_TRUE(table.expired());
    EXPECT_TRUE(list.expired());
}

TEST(UITableViewTouches, StartsTheLayoutAgainWhenTheDataSourceReloadsInIt) {
    ListOnScreen screen({50});
    bool reloaded = false;
    screen.list->whenAsked = [&](UITableView& table, NSIndexPath path) {
        if (path.row == 3 && !reloaded) {
            reloaded = true;
            screen.list->rows = {6};
            table.reloadData();
        }
    };
    screen.layout();
    EXPECT_EQ(screen.table->numberOfRowsInSection(0), 6);
    EXPECT_EQ(screen.table->visibleCells().size(), 6u);
    EXPECT_EQ(screen.table->subviews().size(), 7u) << "six rows and a header";
    screen.list->whenAsked = [](UITableView& table, NSIndexPath) { table.reloadData(); };
    screen.table->reloadData();
    screen.layout(); // gives up for now instead of going round for ever
    EXPECT_TRUE(screen.table->visibleCells().empty());
}
