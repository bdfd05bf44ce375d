#include "platform/uikit/table/TableRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>

namespace {

constexpr Pixels estimate = 10;

TableRows tableOf(const std::vector<std::array<int, 3>>& sections) { // header, rows, footer
    TableRows rows{estimate};
    for (const auto& [header, count, footer] : sections) {
        rows.addSection(header, count, footer);
    }
    return rows;
}

/// The same by adding up.
struct Naive {
    std::vector<std::array<int, 3>> sections;
    std::map<NSIndexPath, Pixels> measured;

    [[nodiscard]] std::vector<TableItem> items() const {
        std::vector<TableItem> items;
        const auto add = [&items](NSIndexPath path, Pixels height, bool isKnown) {
            items.push_back({path, items.empty() ? 0 : items.back().bottom(), height, isKnown});
        };
        for (int number = 0; const auto& [header, count, footer] : sections) {
            add({number, TableItem::header}, header, true);
            for (int row = 0; row < count; ++row) {
                const auto known = measured.find({number, row});
                const bool isKnown = known != measured.end();
                add({number, row}, isKnown ? known->second : estimate, isKnown);
            }
            add({number++, TableItem::footer}, footer, true);
        }
        return items;
    }
};

void expectAgreement(const TableRows& rows, const Naive& naive, const TableWindow& window) {
    std::vector<TableItem> shown;
    Pixels end = 0;
    for (const TableItem& item : naive.items()) {
        EXPECT_EQ(rows.item(item.path), item);
        for (const Pixels line : {item.top, item.bottom() - 1}) {
            EXPECT_TRUE(item.height == 0 || rows.itemAt(line) == item);
        }
        if (window.shows(item)) {
            EXPECT_TRUE(item.isKnown);
            shown.push_back(item);
        }
        end = item.bottom();
    }
    EXPECT_EQ(rows.shown(), shown);
    EXPECT_EQ(rows.height(), end);
    EXPECT_FALSE(rows.itemAt(end));
}

/// As a scroll view does: lays out until the window lies within the content.
void settle(TableRows& rows, TableWindow& window, const TableRows::Measure& measure) {
    for (Pixels top = window.top - 1; top != window.top;) {
        ASSERT_TRUE(rows.layOut(window, measure));
        top = window.top;
        window.top = std::clamp<Pixels>(top, 0, std::max<Pixels>(rows.height() - window.height, 0));
    }
}

Pixels varied(NSIndexPath path) {
    return (path.row * 53 + path.section * 29) % 31; // some have no height
}

/// Where each item stands in the window.
std::map<NSIndexPath, Pixels> places(const TableRows& rows, const TableWindow& window) {
    std::map<NSIndexPath, Pixels> places;
    for (const TableItem& item : rows.shown()) {
        places[item.path] = item.top - window.top;
    }
    return places;
}

} // namespace

TEST(TableRows, StandWithoutGapOrJumpHoweverTheyAreScrolled) {
    std::mt19937 random{7};
    const auto upTo = [&random](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    int kept = 0;
    for (int round = 0; round < 40; ++round) {
        Naive naive;
        for (int count = upTo(6); count > 0; --count) {
            naive.sections.push_back({upTo(3), upTo(round % 2 == 0 ? 9 : 60), upTo(2)});
        }
        TableRows rows = tableOf(naive.sections);
        const TableRows::Measure measure = [&naive](NSIndexPath path) {
            EXPECT_TRUE(naive.measured.emplace(path, varied(path)).second) << "asked twice for row " << path.row;
            return varied(path);
        };
        TableWindow window{.height = 20 + upTo(60)};
        settle(rows, window, measure);
        for (int step = 0; step < 30; ++step) {
            const auto before = places(rows, window);
            const Pixels distance = upTo(5) == 0 ? upTo(2000) - 1000 : upTo(40) - 20;
            window.top += distance;
            settle(rows, window, measure);
            expectAgreement(rows, naive, window);
            const bool isAtEdge = window.top == 0 || window.bottom() >= rows.height();
            for (const auto& [path, place] : places(rows, window)) {
                if (!isAtEdge && before.count(path) > 0) {
                    ++kept;
                    EXPECT_EQ(place, before.at(path) - distance);
                }
            }
        }
        window.top = rows.height() - 1;
        settle(rows, window, measure);
        EXPECT_EQ(window.bottom(), std::max(rows.height(), window.height)) << "a leap to the end reaches it";
    }
    EXPECT_GT(kept, 1000);
}

TEST(TableRows, EndALayoutThatIsNotAnsweredOrFindsTooMany) {
    TableRows rows = tableOf({{5, 1'000'000, 2}});
    TableWindow unanswered{.height = 100};
    EXPECT_FALSE(rows.layOut(unanswered, [](NSIndexPath) { return std::nullopt; }));
    TableWindow window{.height = 100};
    EXPECT_TRUE(rows.layOut(window, [](NSIndexPath) { return 0; }));
    EXPECT_EQ(rows.shown().back().path.row, TableWindow::mostAsked + 9) << "estimated for now";
    TableWindow next{.height = 100};
    EXPECT_TRUE(rows.layOut(next, varied));
    EXPECT_EQ(rows.shown()[1].path.row, TableWindow::mostAsked) << "the next layout goes on";
    EXPECT_EQ(rows.shown()[1].height, varied({0, TableWindow::mostAsked}));
}

TEST(TableRows, AreMoreThanMemoryWouldHold) {
    TableRows rows = tableOf({{-4, 1'000'000'000, 0}, {90, 1'000'000'000, 60}, {90, 1'000'000'000, -1}});
    EXPECT_EQ(rows.height(), estimate * 2'000'000'000LL + 90 + 60 + 90);
    EXPECT_FALSE(rows.item({2, 0})) << "beyond what a table holds";
    TableWindow window{.top = rows.height() - 160, .height = 160};
    ASSERT_TRUE(rows.layOut(window, [](NSIndexPath) { return 78; }));
    const TableItem last = rows.item({1, 999'999'999}).value();
    EXPECT_EQ(last, (TableItem{{1, 999'999'999}, estimate * 1'999'999'999LL + 90, 78}));
}
