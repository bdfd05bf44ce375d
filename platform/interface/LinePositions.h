#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

/// A place in a text, counted from 1; the column counts bytes. Zero means the whole file.
struct LinePosition {
    int line = 0;
    int column = 0;
};

/// Turns offsets into a text into lines and columns. Refers to the text.
class LinePositions {
public:
    explicit LinePositions(std::string_view text);

    [[nodiscard]] LinePosition at(std::size_t offset) const;
    /// Of the last "<" up to an offset.
    [[nodiscard]] LinePosition ofBracketBefore(std::size_t offset) const;

private:
    std::string_view m_text;
    std::vector<std::size_t> m_starts{0};
};
