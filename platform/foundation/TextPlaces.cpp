#include "platform/foundation/TextPlaces.h"

#include <algorithm>

TextPlaces::TextPlaces(std::string_view text) : m_text(text) {
    for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1)) {
        m_starts.push_back(at + 1);
    }
}

TextPlace TextPlaces::at(std::size_t offset) const {
    offset = std::min(offset, m_text.size());
    const auto next = std::upper_bound(m_starts.begin(), m_starts.end(), offset);
    const std::size_t start = *std::prev(next);
    const std::string_view before = m_text.substr(start, offset - start);
    const auto characters = std::count_if(before.begin(), before.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; // the first byte of a character
    });
    return {static_cast<int>(next - m_starts.begin()), static_cast<int>(characters) + 1};
}
