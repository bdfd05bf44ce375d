#include "platform/uikit/table/TableGeometry.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Kind = TableItem::Kind;

/// The same answers by adding up.
struct Naive {
    struct Section {
        Pixels header;
        Pixels footer;
        std::vector<Pixels> rows;
    };
    std::vector<Section> sections;

    [[nodiscard]] std::vector<TableItem> items() const {
        std::vector<TableItem> items;
        Pixels top = 0;
        const auto add = [&](Kind kind, int section, std::size_t row, Pixels height) {
            items.push_back({kind, {section, static_cast<int>(row)}, top, height});
            top += height;
        };
        for (int number = 0; const Section& section : sections) {
            add(Kind::header, number, 0, section.header);
            for (std::size_t row = 0; row < section.rows.size(); ++row) {
                add(Kind::row, number, row, section.rows[row]);
            }
            add(Kind::footer, number, 0, section.footer);
            ++number;
        }
        return items;
    }
};

void expectSame(const TableItem& found, const TableItem& expected) {
    EXPECT_EQ(found.kind, expected.kind);
    EXPECT_EQ(found.indexPath, expected.indexPath);
    EXPECT_EQ(found.top, expected.top);
    EXPECT_EQ(found.height, expected.height);
}

void expectAgreement(const TableGeometry& geometry, const Naive& naive) {
    Pixels line = 0;
    for (const TableItem& item : naive.items()) {
        expectSame(geometry.now(item), item);
        for (const Pixels y : {item.top, item.bottom() - 1}) {
            if (item.height > 0) {
                ASSERT_TRUE(geometry.itemAt(y));
                expectSame(*geometry.itemAt(y), item);
            }
        }
        line = item.bottom();
    }
    EXPECT_EQ(geometry.height(), line);
    EXPECT_FALSE(geometry.itemAt(line));
    EXPECT_FALSE(geometry.itemAt(-1));
}

} // namespace

TEST(TableGeometry, AgreesWithAddingUpHoweverHeightsAreSet) {
    std::mt19937 random{7};
    const auto upTo = [&random](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    for (int round = 0; round < 40; ++round) {
        constexpr Pixels estimate = 10;
        TableGeometry geometry{estimate};
        Naive naive;
        for (int count = upTo(6); count > 0; --count) {
            const Pixels header = upTo(3);
            const Pixels footer = upTo(2);
            const int rows = upTo(9);
            geometry.addSection(header, rows, footer);
            naive.sections.push_back({header, footer, std::vector<Pixels>(static_cast<std::size_t>(rows), estimate)});
        }
        geometry.finish();
        expectAgreement(geometry, naive);
        for (int change = 0; change < 25; ++change) {
            const int section = upTo(6);
            const NSIndexPath path{section, upTo(9)};
            if (geometry.hasRow(path)) {
                const Pixels height = upTo(30);
                Pixels& known =
                    naive.sections[static_cast<std::size_t>(section)].rows[static_cast<std::size_t>(path.row)];
                EXPECT_EQ(geometry.setHeight(path, height), height - known);
                EXPECT_TRUE(geometry.isHeightKnown(path));
                known = height;
            }
        }
        expectAgreement(geometry, naive);
    }
}

TEST(TableGeometry, CountsWithTheEstimateAgainAfterForgetting) {
    TableGeometry geometry{10};
    geometry.addSection(5, 3, 2);
    geometry.finish();
    EXPECT_FALSE(geometry.averageHeight());
    geometry.setHeight({0, 0}, 40);
    geometry.setHeight({0, 2}, 20);
    EXPECT_EQ(geometry.averageHeight(), 30);
    EXPECT_EQ(geometry.height(), 5 + 40 + 10 + 20 + 2);

    geometry.forgetHeights();

    EXPECT_EQ(geometry.height(), 5 + 30 + 2);
    EXPECT_FALSE(geometry.isHeightKnown({0, 0}));
    EXPECT_FALSE(geometry.averageHeight());
}

TEST(TableGeometry, HoldsMoreRowsThanMemoryWould) {
    TableGeometry geometry{132};
    geometry.addSection(0, 1'000'000'000, 0);
    geometry.addSection(90, 1'000'000'000, 60);
    geometry.addSection(90, 1'000'000'000, 60);
    geometry.finish();
    EXPECT_EQ(geometry.numberOfRows(2), 0) << "beyond what a table holds";
    EXPECT_EQ(geometry.numberOfRows(-1), 0);

    geometry.setHeight({1, 999'999'999}, 200);

    const TableItem last = geometry.row({1, 999'999'999});
    EXPECT_EQ(last.top, 132 * 1'999'999'999LL + 90);
    expectSame(*geometry.itemAt(last.bottom() - 1), last);
    EXPECT_EQ(geometry.itemAt(last.bottom())->kind, Kind::footer);
}
