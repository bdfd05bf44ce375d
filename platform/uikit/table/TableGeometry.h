#pragma once

#include "platform/uikit/table/NSIndexPath.h"
#include "platform/uikit/table/PrefixSums.h"
#include "platform/uikit/view/DevicePixels.h"

#include <optional>
#include <unordered_map>
#include <vector>

/// Something that takes up height in a table. A header or footer belongs to indexPath.section.
struct TableItem {
    enum class Kind { header, row, footer };

    Kind kind = Kind::row;
    NSIndexPath indexPath;
    Pixels top = 0;
    Pixels height = 0;

    [[nodiscard]] Pixels bottom() const { return top + height; }
};

/// Where a table's headers, rows and footers stand, counted from the top of the first section. Rows count with an
/// estimate until their height is set; every question costs O(log n), and memory grows with sections and with the
/// rows whose height was set only. Owned by the table from one reload to the next.
class TableGeometry {
public:
    /// Beyond these a table ends; no person scrolls that far.
    static constexpr int mostSections = 1'000'000;
    static constexpr int mostRows = 2'000'000'000; // of all sections together

    explicit TableGeometry(Pixels estimatedRowHeight) : m_estimate(estimatedRowHeight) {}

    /// Sections are added in order, all before anything else is asked. Negative numbers count as zero.
    void addSection(Pixels header, int rows, Pixels footer);
    void finish();

    [[nodiscard]] int numberOfSections() const { return static_cast<int>(m_sections.size()); }
    /// Zero for a section that is not there.
    [[nodiscard]] int numberOfRows(int section) const;
    [[nodiscard]] bool hasRow(NSIndexPath path) const { return path.row >= 0 && path.row < numberOfRows(path.section); }
    [[nodiscard]] Pixels height() const;

    /// What covers the line of pixels; absent outside. Never an item without height.
    [[nodiscard]] std::optional<TableItem> itemAt(Pixels y) const;
    /// The section and the row must be there.
    [[nodiscard]] TableItem header(int section) const;
    [[nodiscard]] TableItem row(NSIndexPath path) const;
    [[nodiscard]] TableItem footer(int section) const;
    /// Where an item stands now that heights have changed.
    [[nodiscard]] TableItem now(const TableItem& item) const;

    [[nodiscard]] bool isHeightKnown(NSIndexPath path) const { return m_heights.count(indexOf(path)) > 0; }
    /// Returns by how much everything below moves.
    Pixels setHeight(NSIndexPath path, Pixels height);
    /// All rows count with the estimate again.
    void forgetHeights();
    /// Of the rows whose height is known; absent when there are none.
    [[nodiscard]] std::optional<Pixels> averageHeight() const;

private:
    struct Section {
        Pixels header;
        Pixels footer;
        int rows;
        std::size_t firstRow; // counted through all sections
        Pixels estimatedTop;  // with every row as tall as the estimate
    };

    [[nodiscard]] const Section& section(int number) const { return m_sections[static_cast<std::size_t>(number)]; }
    [[nodiscard]] std::size_t indexOf(NSIndexPath path) const;
    [[nodiscard]] Pixels topOfSection(int number) const;
    /// The height of the first rows, counted through all sections.
    [[nodiscard]] Pixels heightOfRows(std::size_t count) const;
    [[nodiscard]] Pixels heightOfRowsIn(const Section& section) const;
    [[nodiscard]] int sectionAt(Pixels y) const;

    Pixels m_estimate;
    std::vector<Section> m_sections;
    std::size_t m_rows = 0;
    Pixels m_estimatedHeight = 0;
    std::unordered_map<std::size_t, Pixels> m_heights; // known ones
    Pixels m_knownHeight = 0;                          // their sum
    PrefixSums m_rowDifferences;                       // known height minus estimate
    PrefixSums m_sectionDifferences;                   // their sums in each section
};
