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
        if (!m_done) {
            screen.tap({100, 100});
            screen.layout();
        }
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
        screen.list->area = [](NSIndexPath) { return 320.0 * 70; };
        table.reloadData();
    });
    EXPECT_EQ(screen.table->subviews().size(), 7u) << "six rows and a header";
    EXPECT_EQ(screen.table->contentSize().height, 30 + 6 * 70 + 20);
    for (int row = 0; row < 6; ++row) {
        const ListCell& cell = screen.cell(static_cast<std::size_t>(row));
        EXPECT_EQ(cell.shown, (NSIndexPath{0, row}));
        EXPECT_EQ(cell.frame(), (CGRect{{0, 30 + row * 70.0}, {320, 70}}));
        EXPECT_FALSE(cell.isSelected() || screen.table->indexPathForSelectedRow() == cell.shown);
    }
}

TEST_P(UITableViewCallbacks, MayEndTheDataSourceAndTheDelegate) {
    play([this](UITableView&) { screen.list.reset(); });
    if (GetParam() == std::string("choice")) {
        screen.tap({100, 100}); // asks for a row
        screen.layout();
    }
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
    screen.list->during = [](const std::string&, UITableView& table) {
        EXPECT_EQ(table.numberOfSections(), 0) << "no rows are known while they are counted";
        table.reloadData();
    };
    screen.layout();
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
    screen.touchDown({100, 50});
    screen.table->reloadData();
    screen.layout();
    EXPECT_FALSE(screen.cell(0).isHighlighted()) << "the row touched is another one now";
}
