#include "bench/limit/Rows.h"

#include "bench/limit/Sizes.h"

#include <algorithm>
#include <utility>

namespace limit {

void Rows::layOutTo(int bottom) {
    while (m_bottom < bottom && !isComplete()) {
        layOutNext();
    }
}

void Rows::layOutNext() {
    const Section& section = m_sections[m_section];
    if (!m_next) {
        add({m_bottom, headerHeight, nullptr, layOut(section.title, Weight::regular, points(22), 0), {}});
        m_next = 0;
    } else if (*m_next < section.items.size()) {
        const Item& item = section.items[(*m_next)++];
        Row row{m_bottom, 0, &item, layOut(item.title, Weight::semibold, points(17), textWidth),
                layOut(item.subtitle, Weight::regular, points(15), textWidth)};
        const int texts = row.title.height + textGap + row.subtitle.height;
        row.height = std::max(points(68), texts + 2 * cardPadding) + 2 * cardMarginY;
        add(std::move(row));
    } else {
        m_bottom += footerHeight;
        ++m_section;
        m_next.reset();
    }
}

void Rows::add(Row row) {
    m_bottom += row.height;
    m_rows.push_back(std::move(row));
}

std::size_t Rows::firstBelow(int top) const {
    const auto first = std::partition_point(m_rows.begin(), m_rows.end(),
                                            [top](const Row& row) { return row.top + row.height <= top; });
    return static_cast<std::size_t>(first - m_rows.begin());
}

} // namespace limit
