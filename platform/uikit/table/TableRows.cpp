#include "platform/uikit/table/TableRows.h"

#include <algorithm>
#include <iterator>

void TableRows::addSection(Pixels header, int rows, Pixels footer) {
    const int rowsLeft = mostRows - static_cast<int>(m_rows);
    const Section section{std::clamp<Pixels>(header, 0, tallestItem), std::clamp<Pixels>(footer, 0, tallestItem),
                          std::clamp(rows, 0, rowsLeft), m_rows, m_heightBesideRows};
    m_rows += section.rows;
    m_heightBesideRows += section.header + section.footer;
    m_sections.push_back(section);
}

// Where everything stands.

std::optional<TableItem> TableRows::itemAt(Pixels line) const {
    if (line < 0 || line >= height()) {
        return std::nullopt;
    }
    const auto next = std::partition_point(m_sections.begin(), m_sections.end(),
                                           [&](const Section& section) { return topOfSection(section) <= line; });
    const Section& section = *std::prev(next);
    const int number = static_cast<int>(next - m_sections.begin()) - 1;
    if (line < topOfSection(section) + section.header) {
        return item({number, TableItem::header});
    }
    const RowNumber row = rowAt(line - section.heightAbove - section.header) - section.firstRow;
    return item({number, row < section.rows ? static_cast<int>(row) : TableItem::footer});
}

std::optional<TableItem> TableRows::item(NSIndexPath path) const {
    if (path.section < 0 || path.section >= numberOfSections()) {
        return std::nullopt;
    }
    const Section& section = m_sections[static_cast<std::size_t>(path.section)];
    if (path.row == TableItem::header) {
        return TableItem{path, topOfSection(section), section.header};
    }
    if (path.row == TableItem::footer) {
        const Pixels rowsEnd = topOfRow(section.firstRow + section.rows);
        return TableItem{path, section.heightAbove + section.header + rowsEnd, section.footer};
    }
    if (path.row < 0 || path.row >= section.rows) {
        return std::nullopt;
    }
    return rowIn(section, path);
}

TableItem TableRows::rowIn(const Section& section, NSIndexPath path) const {
    const RowNumber row = section.firstRow + path.row;
    const Pixels above = section.heightAbove + section.header;
    const MeasuredRow& last = lastMeasured([row](const MeasuredRow& measured) { return measured.row <= row; });
    return last.row == row ? TableItem{path, above + last.top, last.height}
                           : TableItem{path, above + topOfRow(row), m_estimate, false};
}

Pixels TableRows::averageHeight() const {
    const auto count = static_cast<Pixels>(m_measured.size()) - 1;
    const MeasuredRow& last = m_measured.back();
    return count == 0 ? m_estimate : (last.bottom() - (last.row + 1 - count) * m_estimate) / count;
}

Pixels TableRows::topOfSection(const Section& section) const {
    return section.heightAbove + topOfRow(section.firstRow);
}

Pixels TableRows::topOfRow(RowNumber row) const {
    const MeasuredRow& last = lastMeasured([row](const MeasuredRow& measured) { return measured.row < row; });
    return last.bottom() + (row - last.row - 1) * m_estimate;
}

TableRows::RowNumber TableRows::rowAt(Pixels line) const {
    const MeasuredRow& last = lastMeasured([line](const MeasuredRow& measured) { return measured.top <= line; });
    return line < last.bottom() ? last.row : last.row + 1 + (line - last.bottom()) / m_estimate;
}

/// The condition must hold for the beginning of the list.
template <class Condition>
const TableRows::MeasuredRow& TableRows::lastMeasured(Condition condition) const {
    return *std::prev(std::partition_point(m_measured.begin() + 1, m_measured.end(), condition));
}

// What the window shows.

bool TableRows::layOut(TableWindow& window, const Measure& measure) {
    dropWhatLeft(window);
    const Pixels line = m_shown.empty() ? anchorOf(window) : m_shown.back().bottom();
    return layOutBelow(line, window, measure) &&
           layOutAbove(m_shown.empty() ? line : m_shown.front().top, window, measure);
}

/// What is still estimated was more than one layout could ask for: this one begins anew.
void TableRows::dropWhatLeft(const TableWindow& window) {
    if (!std::all_of(m_shown.begin(), m_shown.end(), [](const TableItem& item) { return item.isKnown; })) {
        m_shown.clear();
    }
    std::erase_if(m_shown, [&window](const TableItem& item) { return !window.shows(item); });
}

/// Before any row is measured a table stays where it is: it was reloaded, not scrolled to the end.
Pixels TableRows::anchorOf(const TableWindow& window) const {
    if (window.anchor) {
        return *window.anchor;
    }
    const Pixels end = height();
    if (window.top > 0 && window.bottom() >= end && m_measured.size() > 1) {
        return end;
    }
    const std::optional<TableItem> edge = itemAt(std::clamp<Pixels>(window.top, 0, end));
    return edge ? edge->top : end;
}

bool TableRows::layOutBelow(Pixels line, TableWindow& window, const Measure& measure) {
    while (std::optional<TableItem> item = line < window.bottom() ? itemAt(line) : std::nullopt) {
        if (!learn(*item, window, measure)) {
            return false;
        }
        line = item->bottom();
        if (window.shows(*item)) {
            m_shown.push_back(*item);
        }
    }
    return true;
}

/// Rows grow upwards here: on screen everything below stays in place, and so the window moves along with it.
bool TableRows::layOutAbove(Pixels line, TableWindow& window, const Measure& measure) {
    while (std::optional<TableItem> item = line > window.top ? itemAt(line - 1) : std::nullopt) {
        const Pixels estimated = item->height;
        if (!learn(*item, window, measure)) {
            return false;
        }
        line = item->top;
        window.top += item->height - estimated;
        for (TableItem& below : m_shown) {
            below.top += item->height - estimated;
        }
        if (window.shows(*item)) {
            m_shown.insert(m_shown.begin(), *item);
        }
    }
    return true;
}

/// Gives the item its true height. False when nobody answered.
bool TableRows::learn(TableItem& item, TableWindow& window, const Measure& measure) {
    if (item.isKnown || window.asksLeft-- <= 0) {
        return true;
    }
    const std::optional<Pixels> answer = measure(item.path);
    if (!answer) {
        return false;
    }
    const Pixels height = std::min(*answer, tallestItem);
    const RowNumber row = m_sections[static_cast<std::size_t>(item.path.section)].firstRow + item.path.row;
    const auto next = std::partition_point(m_measured.begin(), m_measured.end(),
                                           [row](const MeasuredRow& measured) { return measured.row < row; });
    const auto index = static_cast<std::size_t>(next - m_measured.begin());
    m_measured.insert(next, {row, topOfRow(row), height});
    for (std::size_t below = index + 1; below < m_measured.size(); ++below) {
        m_measured[below].top += height - m_estimate;
    }
    item.height = height;
    item.isKnown = true;
    return true;
}

bool TableRows::shows(NSIndexPath path) const {
    return std::any_of(m_shown.begin(), m_shown.end(), [path](const TableItem& item) { return item.path == path; });
}

void TableRows::forgetHeights(TableWindow& window) {
    const std::optional<TableItem> edge = itemAt(window.top);
    m_measured.resize(1);
    m_shown.clear();
    if (edge) {
        window.anchor = item(edge->path)->top;
        window.top += *window.anchor - edge->top;
    }
}
