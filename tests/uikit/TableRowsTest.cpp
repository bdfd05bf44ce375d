#include "platform/uikit/table/TableRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace {

constexpr Pixels estimate = 10;

/// The same rows, by adding up.
struct Naive {
    struct Section {
        Pixels header;
        int rows;
        Pixels footer;
    };
    std::vector<Section> sections;
    std::map<NSIndexPath, Pixels> measured;

    [[nodiscard]] TableRows rows() const {
        TableRows rows{estimate};
        for (const Section& section : sections) {
            rows.addSection(section.header, section.rows, section.footer);
        }
        return rows;
    }
    [[nodiscard]] std::vector<TableItem> items() const {
        std::vector<TableItem> items;
        const auto add = [&items](NSIndexPath path, Pixels height, bool isKnown) {
            items.push_back({path, items.empty() ? 0 : items.back().bottom(), height, isKnown});
        };
        for (int number = 0; const Section& section : sections) {
            add({number, TableItem::header}, section.header, true);
            for (int row = 0; row < section.rows; ++row) {
                const auto known = measured.find({number, row});
                const bool isKnown = known != measured.end();
                add({number, row}, isKnown ? known->second : estimate, isKnown);
            }
            add({number++, TableItem::footer}, section.footer, true);
        }
        return items;
    }
    [[nodiscard]] Pixels height() const { return sections.empty() ? 0 : items().back().bottom(); }
    TableRows::Measure measure(Pixels (*heightOf)(NSIndexPath)) {
        return [this, heightOf](NSIndexPath path) {
            EXPECT_TRUE(measured.emplace(path, heightOf(path)).second) << "asked twice for row " << path.row;
            return measured[path];
        };
    }
};

void expectSame(const TableItem& found, const TableItem& expected) {
    EXPECT_EQ(found.path, expected.path);
    EXPECT_EQ(found.top, expected.top);
    EXPECT_EQ(found.height, expected.height);
    EXPECT_EQ(found.isKnown, expected.isKnown);
}

void expectAgreement(const TableRows& rows, const Naive& naive, const TableWindow& window) {
    std::vector<TableItem> shown;
    for (const TableItem& item : naive.items()) {
        expectSame(rows.item(item.path).value(), item);
        for (const Pixels line : {item.top, item.bottom() - 1}) {
            if (item.height > 0) {
                expectSame(rows.itemAt(line).value(), item);
            }
        }
        if (window.shows(item)) {
            shown.push_back(item);
        }
    }
    ASSERT_EQ(rows.shown().size(), shown.size());
    for (std::size_t index = 0; index < shown.size(); ++index) {
        expectSame(rows.shown()[index], shown[index]);
        EXPECT_TRUE(shown[index].isKnown);
        EXPECT_TRUE(rows.shows(shown[index].path));
    }
    EXPECT_EQ(rows.height(), naive.height());
    EXPECT_FALSE(rows.itemAt(naive.height()));
    EXPECT_FALSE(rows.itemAt(-1));
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

Pixels flat(NSIndexPath) {
    return 0;
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
        TableRows rows = naive.rows();
        const TableRows::Measure measure = naive.measure(varied);
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

TEST(TableRows, AreEstimatedAgainForAnotherWidthWhereTheOneAtTheTopEdgeStays) {
    Naive naive{.sections = {{5, 3, 2}, {5, 40, 2}}, .measured = {}};
    TableRows rows = naive.rows();
    EXPECT_EQ(rows.averageHeight(), estimate);
    TableWindow window{.height = 100};
    settle(rows, window, [](NSIndexPath) { return 25; });
    EXPECT_EQ(rows.averageHeight(), 25);
    window.top = 102; // in the first row of the second section, which begins at 87: deeper than the estimate reaches
    rows.forgetHeights(window);
    expectSame(rows.item({1, 0}).value(), {{1, 0}, 42, estimate, false});
    settle(rows, window, [](NSIndexPath) { return 30; });
    EXPECT_EQ(rows.shown().front().path, (NSIndexPath{1, 0}));
    EXPECT_EQ(rows.shown().front().top - window.top, 87 - 102);
    EXPECT_EQ(rows.averageHeight(), 30);
}

TEST(TableRows, EndALayoutThatIsNotAnsweredOrFindsTooMany) {
    Naive naive{.sections = {{5, 1'000'000, 2}}, .measured = {}};
    TableRows rows = naive.rows();
    TableWindow window{.height = 100};
    EXPECT_FALSE(rows.layOut(window, [](NSIndexPath) { return std::nullopt; }));
    EXPECT_EQ(window.asksLeft, TableWindow::mostAsked - 1);
    window.asksLeft = TableWindow::mostAsked;
    EXPECT_TRUE(rows.layOut(window, naive.measure(flat)));
    EXPECT_EQ(naive.measured.size(), static_cast<std::size_t>(TableWindow::mostAsked));
    EXPECT_EQ(rows.shown().back().path.row, TableWindow::mostAsked + 9) << "estimated for now";
    TableWindow next{.height = 100};
    EXPECT_TRUE(rows.layOut(next, naive.measure(varied)));
    EXPECT_EQ(rows.shown()[1].path.row, TableWindow::mostAsked) << "the next layout goes on";
    EXPECT_EQ(rows.shown()[1].height, varied({0, TableWindow::mostAsked}));
}

TEST(TableRows, AreMoreThanMemoryWouldHold) {
    TableRows rows{132};
    rows.addSection(-4, 1'000'000'000, 0);
    rows.addSection(90, 1'000'000'000, 60);
    rows.addSection(90, 1'000'000'000, -1);
    EXPECT_EQ(rows.height(), 132 * 2'000'000'000LL + 90 + 60 + 90);
    EXPECT_FALSE(rows.item({2, 0})) << "beyond what a table holds";
    EXPECT_FALSE(rows.item({-1, 0}));
    TableWindow window{.top = rows.height() - 282, .height = 282};
    ASSERT_TRUE(rows.layOut(window, [](NSIndexPath) { return 200; }));
    const TableItem last = rows.item({1, 999'999'999}).value();
    expectSame(last, {{1, 999'999'999}, 132 * 1'999'999'999LL + 90, 200});
    expectSame(rows.itemAt(last.bottom() - 1).value(), last);
    EXPECT_EQ(rows.itemAt(last.bottom())->path, (NSIndexPath{1, TableItem::footer}));
}
