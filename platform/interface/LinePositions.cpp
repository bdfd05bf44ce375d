#include "platform/interface/LinePositions.h"

#include <algorithm>

LinePositions::LinePositions(std::string_view text) : m_text(text) {
    for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1)) {
        m_starts.push_back(at + 1);
    }
}

LinePosition LinePositions::at(std::size_t offset) const {
    const auto next = std::upper_bound(m_starts.begin(), m_starts.end(), offset);
    const auto line = static_cast<std::size_t>(next - m_starts.begin());
    return {static_cast<int>(line), static_cast<int>(offset - m_starts[line - 1]) + 1};
}

LinePosition LinePositions::ofBracketBefore(std::size_t offset) const {
    const std::size_t bracket = m_text.rfind('<', offset);
    return at(bracket == std::string_view::npos ? offset : bracket);
}
