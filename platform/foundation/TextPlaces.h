#pragma once

#include "platform/foundation/Finding.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Turns byte offsets into a UTF-8 text into lines and columns. Refers to the text.
class TextPlaces {
public:
    explicit TextPlaces(std::string_view text);

    /// An offset past the end counts as the end.
    [[nodiscard]] TextPlace at(std::size_t offset) const;

private:
    std::string_view m_text;
    std::vector<std::size_t> m_starts{0}; // of the lines
};
