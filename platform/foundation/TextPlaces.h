#pragma once

#include "platform/foundation/Finding.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Turns byte offsets into a UTF-8 text into lines and columns. Lines end as in an editor: with \n, \r\n or \r. Refers
/// to the text.
class TextPlaces {
public:
    explicit TextPlaces(std::string_view text);

    /// An offset past the end counts as the end.
    [[nodiscard]] TextPlace at(std::size_t offset) const;
    /// The line alone, which costs less.
    [[nodiscard]] int lineAt(std::size_t offset) const;
    /// Where a line begins; the end of the text for one that is not there.
    [[nodiscard]] std::size_t start(int line) const;
    /// The text of a line without its end; empty when there is no such line.
    [[nodiscard]] std::string_view lineText(int line) const;

private:
    std::string_view m_text;
    std::vector<std::size_t> m_starts{0}; // of the lines
};
