#pragma once

#include "platform/foundation/PixelGrid.h"
#include "platform/uikit/table/UITableViewDelegate.h"

#include <functional>
#include <limits>
#include <optional>
#include <vector>

/// Something that takes up height in a table: a row, or the header or footer of a section. Paths order them as a
/// reader meets them: a header comes before row 0, a footer after every row.
struct TableItem {
    static constexpr int header = -1;
    static constexpr int footer = std::numeric_limits<int>::max();

    NSIndexPath path;
    Pixels top = 0;
    Pixels height = 0;
    bool isKnown = true; // false while the height is an estimate

    [[nodiscard]] Pixels bottom() const { return top + height; }
    friend bool operator==(const TableItem&, const TableItem&) = default;
    [[nodiscard]] static bool isRow(NSIndexPath path) { return path.row != header && path.row != footer; }
};

/// The part of a table that is seen. It moves along when rows above it turn out taller or shorter.
struct TableWindow {
    /// Rows without height never fill a screen: so many are asked for their height in one layout, the next goes on.
    static constexpr int mostAsked = 500;

    Pixels top = 0;
    Pixels height = 0;
    std::optional<Pixels> anchor = std::nullopt; // the line to lay out from; absent: wherever that is best
    int asksLeft = mostAsked;

    [[nodiscard]] Pixels bottom() const { return top + height; }
    [[nodiscard]] bool shows(const TableItem& item) const {
        return item.height > 0 && item.bottom() > top && item.top < bottom();
    }
};

/// The heights of a table's headers, rows and footers, and what of them its window shows. Lines are pixels from the top
/// of the first section. A row counts with an estimate until it is first shown and measured. A question costs O(log n);
/// memory grows with the sections and with the rows measured, and measuring a row moves those measured below it (some
/// 10 µs for 10,000 of them). Made by the table's source at every reload.
class TableRows {
public:
    /// Beyond these a table ends; no person scrolls that far.
    static constexpr int mostSections = 1'000'000;
    static constexpr int mostRows = 2'000'000'000; // of all sections together
    /// What is taller, a row or a header or a footer, counts as no more: sums stay in range.
    static constexpr Pixels tallestItem = 30'000'000;

    /// Asks for a row's height; no answer ends the layout.
    using Measure = std::function<std::optional<Pixels>(NSIndexPath)>;

    /// The estimate must be positive.
    explicit TableRows(Pixels estimatedRowHeight) : m_estimate(estimatedRowHeight) {}
    /// Sections are added in order, all before anything else is asked. Negative numbers count as zero.
    void addSection(Pixels header, int rows, Pixels footer);

    [[nodiscard]] int numberOfSections() const { return static_cast<int>(m_sections.size()); }
    [[nodiscard]] Pixels height() const { return m_heightBesideRows + topOfRow(m_rows); }
    /// What covers the line; absent outside. Never an item without height.
    [[nodiscard]] std::optional<TableItem> itemAt(Pixels line) const;
    /// Absent for what the table does not have.
    [[nodiscard]] std::optional<TableItem> item(NSIndexPath path) const;
    /// Of the rows measured; the estimate when there are none.
    [[nodiscard]] Pixels averageHeight() const;

    /// Measures what the window shows. What it showed before and still does keeps its place in it; a leap to the end
    /// reaches the end; after any other leap the item at the top edge keeps its place. False when a row was not
    /// answered.
    [[nodiscard]] bool layOut(TableWindow& window, const Measure& measure);
    /// What the last layout found in its window, from the top down. Never an item without height.
    [[nodiscard]] const std::vector<TableItem>& shown() const { return m_shown; }
    [[nodiscard]] bool shows(NSIndexPath path) const;
    /// For a table of another width: all rows are estimated again. The item at the window's top edge keeps its place.
    void forgetHeights(TableWindow& window);

private:
    using RowNumber = std::int64_t; // counted through all sections

    struct Section {
        Pixels header;
        Pixels footer;
        int rows;
        RowNumber firstRow;
        Pixels heightAbove; // of the headers and footers of the sections above
    };
    /// Places are those that rows would have without headers and footers.
    struct MeasuredRow {
        RowNumber row;
        Pixels top;
        Pixels height;

        [[nodiscard]] Pixels bottom() const { return top + height; }
    };

    [[nodiscard]] Pixels topOfSection(const Section& section) const;
    [[nodiscard]] TableItem rowIn(const Section& section, NSIndexPath path) const;
    /// Without headers and footers; the number may be that of all rows.
    [[nodiscard]] Pixels topOfRow(RowNumber row) const;
    [[nodiscard]] RowNumber rowAt(Pixels line) const;
    template <class Condition>
    [[nodiscard]] const MeasuredRow& lastMeasured(Condition condition) const;

    void dropWhatLeft(const TableWindow& window);
    [[nodiscard]] Pixels anchorOf(const TableWindow& window) const;
    [[nodiscard]] bool layOutBelow(Pixels line, TableWindow& window, const Measure& measure);
    [[nodiscard]] bool layOutAbove(Pixels line, TableWindow& window, const Measure& measure);
    [[nodiscard]] bool learn(TableItem& item, TableWindow& window, const Measure& measure);

    Pixels m_estimate;
    std::vector<Section> m_sections;
    RowNumber m_rows = 0;
    Pixels m_heightBesideRows = 0;
    std::vector<MeasuredRow> m_measured{{-1, 0, 0}}; // begins with a row of no height before the first
    std::vector<TableItem> m_shown;
};
