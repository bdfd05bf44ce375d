#include "tests/uikit/TableFixture.h"

#include <utility>

using namespace support;

namespace {

/// Does something in the first call of one callback, then lets the screen be laid out and touched.
class UITableViewCallbacks : public testing::TestWithParam<const char*> {
protected:
    void play(const std::function<void(UITableView&)>& action) {
        screen.list->during = [this, action](const std::string& callback, UITableView& table) {
            if (callback == GetParam() && !std::exchange(m_done, true)) {
                action(table);
            }
        };
        screen.layout();
        screen.tap({100, 100});
        screen.layout();
        EXPECT_TRUE(m_done) << GetParam();
    }

    ListOnScreen screen{{50, 50}};

private:
    bool m_done = false;
};

INSTANTIATE_TEST_SUITE_P(, UITableViewCallbacks,
                         testing::Values("sections", "rows", "header height", "footer height", "height", "cell",
                                         "header", "choice"));

} // namespace

TEST_P(UITableViewCallbacks, MayReloadTheTable) {
    play([this](UITableView& table) {
        screen.list->rows = {6};
        screen.list->headerHeight = [](int) { return 12.0; };
        table.reloadData();
        (void)table.numberOfSections(); // asks although its callback may be asking
    });
    EXPECT_EQ(screen.table->subviews().size(), 7u) << "six rows and a header";
    EXPECT_EQ(screen.table->contentSize().height, 12 + 6 * 60 + 20);
    ASSERT_EQ(screen.table->visibleCells().size(), 6u);
    for (int row = 0; row < 6; ++row) {
        const ListCell& cell = screen.cell(static_cast<std::size_t>(row));
        EXPECT_EQ(cell.shown, (NSIndexPath{0, row}));
        EXPECT_EQ(cell.frame(), (CGRect{{0, 12 + row * 60.0}, {320, 60}}));
        EXPECT_EQ(cell.isSelected(), screen.table->indexPathForSelectedRow() == cell.shown);
    }
}

TEST_P(UITableViewCallbacks, MayEndTheDataSourceAndTheDelegate) {
    const std::weak_ptr<List> list = screen.list;
    play([this](UITableView&) { screen.list.reset(); });
    EXPECT_TRUE(list.expired());
    screen.tap({100, 100});
    screen.layout();
    EXPECT_TRUE(screen.table->subviews().empty());
    EXPECT_EQ(screen.table->contentSize().height, 0);
}

TEST_P(UITableViewCallbacks, MayDropTheWholeScreen) {
    const std::weak_ptr<UITableView> table = screen.table;
    play([this](UITableView& asking) {
        asking.removeFromSuperview();
        screen.table.reset();
        screen.list.reset();
    });
    EXPECT_TRUE(table.expired());
}

TEST(UITableViewReloads, GiveUpForNowWhenEveryLayoutStartsAnother) {
    ListOnScreen screen({50});
    screen.list->during = [](const std::string&, UITableView& table) { table.reloadData(); };
    screen.layout();
    EXPECT_TRUE(screen.table->visibleCells().empty());
    EXPECT_TRUE(screen.window->needsLayout());
    EXPECT_LE(screen.list->asked["sections"], 100);
}

TEST(UITableViewReloads, CountForATouchThatComesBeforeTheNextLayout) {
    ListOnScreen screen({4});
    screen.layout();
    screen.list->rows = {1};
    screen.table->reloadData();
    screen.tap({100, 200});
    EXPECT_TRUE(screen.list->selections.empty()) << "the row is gone";
    screen.tap({100, 50});
    EXPECT_EQ(screen.list->selections, (std::vector<NSIndexPath>{{0, 0}}));
}
