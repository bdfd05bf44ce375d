#pragma once

#include <cstddef>

/// A stretch of a text. Both numbers count UTF-16 code units.
struct NSRange {
    std::size_t location = 0;
    std::size_t length = 0;

    friend bool operator==(const NSRange&, const NSRange&) = default;
};

[[nodiscard]] constexpr NSRange NSMakeRange(std::size_t location, std::size_t length) {
    return {location, length};
}
