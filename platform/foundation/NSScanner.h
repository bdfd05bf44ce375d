#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Reads numbers from a text, from the start onwards. Whitespace and line breaks before a number are skipped.
class NSScanner {
public:
    explicit NSScanner(std::string text) : m_text(std::move(text)) {}

    /// Reads hexadecimal digits up to the first character that is none; a "0x" in front is not understood, it reads as
    /// the digit 0. A number beyond 64 bits gives UINT64_MAX. Without a digit returns false and leaves `value` alone.
    /// Selector scanHexLongLong:
    bool scanHexLongLong(std::uint64_t& value);

private:
    std::string m_text;
    std::size_t m_location = 0;
};
