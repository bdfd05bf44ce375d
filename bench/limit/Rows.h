#pragma once

#include "bench/limit/Content.h"
#include "bench/limit/LimitText.h"

#include <optional>
#include <vector>

namespace limit {

/// A section's header or a row, laid out when it is first seen. Lengths in pixels, from the top of the content.
struct Row {
    int top = 0;
    int height = 0;
    const Item* item = nullptr; // null for a header
    Text title;
    Text subtitle;
};

/// The rows of one group, laid out from the top as far as somebody has looked.
class Rows {
public:
    explicit Rows(const std::vector<Section>& sections) : m_sections(sections) {}

    /// Lays out what is missing above `bottom`.
    void layOutTo(int bottom);
    /// Where the laid-out rows end, and whether that is the end of the content.
    [[nodiscard]] int bottom() const { return m_bottom; }
    [[nodiscard]] bool isComplete() const { return m_section == m_sections.size(); }
    /// Calls `draw` with every laid-out row that meets top … bottom.
    template <class Draw>
    void forEach(int top, int bottom, Draw draw) const {
        for (std::size_t i = firstBelow(top); i < m_rows.size() && m_rows[i].top < bottom; ++i) {
            draw(m_rows[i]);
        }
    }

private:
    void layOutNext();
    void add(Row row);
    [[nodiscard]] std::size_t firstBelow(int top) const;

    const std::vector<Section>& m_sections;
    std::vector<Row> m_rows;
    std::size_t m_section = 0;
    std::optional<std::size_t> m_next; // row of the section; none: its header
    int m_bottom = 0;
};

} // namespace limit
