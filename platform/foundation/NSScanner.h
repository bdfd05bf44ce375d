#pragma once

#include <charconv>
#include <cstdint>
#include <limits>
#include <string>

/// Reads a number from the start of a text.
class NSScanner {
public:
    explicit NSScanner(std::string text) : m_text(std::move(text)) {}

    /// Reads hexadecimal digits up to the first character that is none; a "0x" in front is not understood, it reads as
    /// the digit 0. A number beyond 64 bits gives UINT64_MAX. When the text does not begin with a digit, returns false
    /// and leaves `value` alone. Selector scanHexLongLong:
    bool scanHexLongLong(std::uint64_t& value) const {
        std::uint64_t number = 0;
        const auto [end, error] = std::from_chars(m_text.data(), m_text.data() + m_text.size(), number, 16);
        if (end == m_text.data()) {
            return false;
        }
        value = error == std::errc::result_out_of_range ? std::numeric_limits<std::uint64_t>::max() : number;
        return true;
    }

private:
    std::string m_text;
};
