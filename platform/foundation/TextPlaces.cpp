#include "platform/foundation/TextPlaces.h"

#include <algorithm>

TextPlaces::TextPlaces(std::string_view text) : m_text(text) {
    for (std::size_t at = text.find_first_of("\r\n"); at != std::string_view::npos;
         at = text.find_first_of("\r\n", at + 1)) {
        if (text[at] == '\n' || !text.substr(at + 1).starts_with('\n')) {
            m_starts.push_back(at + 1);
        }
    }
}

TextPlace TextPlaces::at(std::size_t offset) const {
    const int line = lineAt(offset);
    const std::string_view before = m_text.substr(0, offset).substr(start(line));
    const auto characters = std::count_if(before.begin(), before.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; // the first byte of a character
    });
    return {line, static_cast<int>(characters) + 1};
}

int TextPlaces::lineAt(std::size_t offset) const {
    return static_cast<int>(std::upper_bound(m_starts.begin(), m_starts.end(), offset) - m_starts.begin());
}

std::size_t TextPlaces::start(int line) const {
    const auto index = static_cast<std::size_t>(line - 1);
    return index < m_starts.size() ? m_starts[index] : m_text.size();
}

std::string_view TextPlaces::lineText(int line) const {
    const std::string_view rest = m_text.substr(start(line));
    return rest.substr(0, rest.find_first_of("\r\n"));
}
