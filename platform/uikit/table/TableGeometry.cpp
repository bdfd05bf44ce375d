#include "platform/uikit/table/TableGeometry.h"

#include <algorithm>

void TableGeometry::addSection(Pixels header, int rows, Pixels footer) {
    const int rowsLeft = mostRows - static_cast<int>(m_rows);
    Section section{std::max<Pixels>(header, 0), std::max<Pixels>(footer, 0), std::clamp(rows, 0, rowsLeft), m_rows,
                    m_estimatedHeight};
    m_rows += static_cast<std::size_t>(section.rows);
    m_estimatedHeight += section.header + section.rows * m_estimate + section.footer;
    m_sections.push_back(section);
}

void TableGeometry::finish() {
    m_rowDifferences = PrefixSums(m_rows);
    m_sectionDifferences = PrefixSums(m_sections.size());
}

int TableGeometry::numberOfRows(int number) const {
    return number >= 0 && number < numberOfSections() ? section(number).rows : 0;
}

Pixels TableGeometry::height() const {
    return m_estimatedHeight + m_sectionDifferences.sum(m_sections.size());
}

std::optional<TableItem> TableGeometry::itemAt(Pixels y) const {
    if (y < 0 || y >= height()) {
        return std::nullopt;
    }
    const int number = sectionAt(y);
    const Section& found = section(number);
    const TableItem head = header(number);
    if (y < head.bottom()) {
        return head;
    }
    if (const TableItem foot = footer(number); y >= foot.top) {
        return foot;
    }
    const Pixels heightAbove = heightOfRows(found.firstRow) + y - head.bottom();
    const std::size_t index = m_rowDifferences.countWithin(
        heightAbove, [this](std::size_t count) { return static_cast<Pixels>(count) * m_estimate; });
    return row({number, static_cast<int>(index - found.firstRow)});
}

TableItem TableGeometry::header(int number) const {
    return {TableItem::Kind::header, {number, 0}, topOfSection(number), section(number).header};
}

TableItem TableGeometry::row(NSIndexPath path) const {
    const Section& owner = section(path.section);
    const std::size_t index = indexOf(path);
    const Pixels top = header(path.section).bottom() + heightOfRows(index) - heightOfRows(owner.firstRow);
    const auto known = m_heights.find(index);
    return {TableItem::Kind::row, path, top, known == m_heights.end() ? m_estimate : known->second};
}

TableItem TableGeometry::footer(int number) const {
    const Pixels top = header(number).bottom() + heightOfRowsIn(section(number));
    return {TableItem::Kind::footer, {number, 0}, top, section(number).footer};
}

TableItem TableGeometry::now(const TableItem& item) const {
    switch (item.kind) {
    case TableItem::Kind::header:
        return header(item.indexPath.section);
    case TableItem::Kind::footer:
        return footer(item.indexPath.section);
    case TableItem::Kind::row:
        break;
    }
    return row(item.indexPath);
}

Pixels TableGeometry::setHeight(NSIndexPath path, Pixels height) {
    const std::size_t index = indexOf(path);
    const auto [known, isNew] = m_heights.try_emplace(index, m_estimate);
    const Pixels difference = height - known->second;
    m_knownHeight += isNew ? height : difference;
    known->second = height;
    m_rowDifferences.add(index, difference);
    m_sectionDifferences.add(static_cast<std::size_t>(path.section), difference);
    return difference;
}

void TableGeometry::forgetHeights() {
    m_heights.clear();
    m_knownHeight = 0;
    m_rowDifferences.clear();
    m_sectionDifferences.clear();
}

std::optional<Pixels> TableGeometry::averageHeight() const {
    if (m_heights.empty()) {
        return std::nullopt;
    }
    return m_knownHeight / static_cast<Pixels>(m_heights.size());
}

std::size_t TableGeometry::indexOf(NSIndexPath path) const {
    return section(path.section).firstRow + static_cast<std::size_t>(path.row);
}

Pixels TableGeometry::topOfSection(int number) const {
    return section(number).estimatedTop + m_sectionDifferences.sum(static_cast<std::size_t>(number));
}

Pixels TableGeometry::heightOfRows(std::size_t count) const {
    return static_cast<Pixels>(count) * m_estimate + m_rowDifferences.sum(count);
}

Pixels TableGeometry::heightOfRowsIn(const Section& section) const {
    const std::size_t end = section.firstRow + static_cast<std::size_t>(section.rows);
    return heightOfRows(end) - heightOfRows(section.firstRow);
}

int TableGeometry::sectionAt(Pixels y) const {
    const std::size_t found = m_sectionDifferences.countWithin(y, [this](std::size_t count) {
        return count < m_sections.size() ? m_sections[count].estimatedTop : m_estimatedHeight;
    });
    return static_cast<int>(found);
}
