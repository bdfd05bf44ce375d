#include "tests/uikit/TableFixture.h"

#include <random>

using namespace support;

namespace {

double varied(NSIndexPath path) {
    return 320.0 * (20 + (path.row * 53 + path.section * 29) % 140) + 100;
}

/// Rows seen before and after moved by the distance scrolled and nothing else.
void expectNoJump(const std::vector<Seen>& before, const std::vector<Seen>& after, CGFloat distance) {
    for (const Seen& old : before) {
        for (const Seen& now : after) {
            if (now.path == old.path) {
                EXPECT_NEAR(now.top, old.top - distance, 1e-6) << "row " << now.path.row;
                EXPECT_EQ(now.height, old.height);
            }
        }
    }
}

void expectReadingOrder(const UITableView& table) {
    CGFloat last = -1;
    for (const auto& view : table.subviews()) {
        EXPECT_GT(view->frame().minY(), last);
        last = view->frame().minY();
    }
}

} // namespace

TEST(UITableViewScrolling, NothingJumpsWhenRowsAboveTurnOutTallerOrShorter) {
    ListOnScreen screen({2000, 0, 3000, 5000});
    screen.list->area = varied;
    screen.layout();
    screen.scrollTo(screen.table->rectForRowAtIndexPath({3, 10}).minY());
    std::mt19937 random{3};
    for (int step = 0; step < 500; ++step) {
        const std::vector<Seen> before = rowsSeen(screen);
        const CGFloat distance = static_cast<CGFloat>(random() % 100) - 70;
        screen.scrollBy(distance);
        ASSERT_FALSE(screen.isAtEnd());
        expectNoJump(before, rowsSeen(screen), distance);
    }
    EXPECT_EQ(rowsSeen(screen).front().path.section, 2) << "the test scrolls up across a section";
}

TEST(UITableViewScrolling, ReachesTheVeryTopAndTheVeryEnd) {
    ListOnScreen screen({400});
    screen.list->area = varied;
    screen.table->setContentInset({10, 0, 80, 0});
    screen.layout();
    screen.scrollTo(1e9);
    const UITableView& table = *screen.table;
    EXPECT_EQ(rowsSeen(screen).back().path.row, 399);
    EXPECT_NEAR(table.contentOffset().y + 480, table.contentSize().height + 80, 1.0 / 3);
    for (int step = 0; step < 1000; ++step) {
        screen.scrollBy(-50);
    }
    EXPECT_EQ(table.contentOffset().y, -10);
    EXPECT_EQ(rowsSeen(screen).front().top, 10 + 30);
}

TEST(UITableViewScrolling, ShowsTheSameHoweverItGotThere) {
    std::mt19937 random{11};
    for (int round = 0; round < 30; ++round) {
        ListOnScreen wandering({20, 0, 300, 1, 700});
        wandering.list->area = varied;
        wandering.layout();
        for (int step = 0; step < 25; ++step) {
            const bool leaps = random() % 4 == 0;
            wandering.scrollBy(static_cast<CGFloat>(random() % (leaps ? 30000u : 300u)) - (leaps ? 12000 : 120));
        }
        const std::vector<Seen> expected = rowsSeen(wandering);
        ASSERT_FALSE(expected.empty());

        ListOnScreen fresh({20, 0, 300, 1, 700});
        fresh.list->area = varied;
        fresh.layout();
        const auto top = [&] { return fresh.table->rectForRowAtIndexPath(expected.front().path).minY(); };
        for (int attempt = 0; attempt < 4; ++attempt) { // near the end estimates cut the first ones short
            fresh.scrollTo(top());
        }
        fresh.scrollTo(top() - expected.front().top);
        const std::vector<Seen> found = rowsSeen(fresh);
        ASSERT_EQ(found.size(), expected.size());
        for (std::size_t index = 0; index < found.size(); ++index) {
            EXPECT_EQ(found[index].path, expected[index].path);
            EXPECT_NEAR(found[index].top, expected[index].top, 1e-6);
            EXPECT_EQ(found[index].height, expected[index].height);
        }
    }
}

TEST(UITableViewScrolling, FollowsTheFingerAlthoughRowsAboveAreMeasuredOnTheWay) {
    ListOnScreen screen({5000});
    screen.list->area = varied;
    screen.layout();
    screen.scrollTo(90'000);
    const std::vector<Seen> before = rowsSeen(screen);
    const auto cell = screen.table->visibleCells().front();
    const auto finger = screen.touchDown({100, 40});
    for (CGFloat y = 60; y <= 240; y += 20) {
        screen.move(finger, {100, y});
        screen.layout();
        expectReadingOrder(*screen.table);
    }
    expectNoJump(before, rowsSeen(screen), -200);
    EXPECT_EQ(screen.table->cellForRowAtIndexPath(before.front().path), cell)
        << "rows that stay visible are left alone";
    screen.lift(finger, {100, 240});
    EXPECT_FALSE(screen.window->needsLayout());
}

TEST(UITableViewScrolling, LearnsFromTheRowsSeenForTheNextReload) {
    ListOnScreen screen({100});
    screen.list->area = [](NSIndexPath) { return 320.0 * 90; };
    screen.layout();
    EXPECT_LT(screen.table->contentSize().height, 100 * 90);
    screen.table->reloadData();
    screen.layout();
    EXPECT_EQ(screen.table->contentSize().height, 30 + 100 * 90 + 20);
}
