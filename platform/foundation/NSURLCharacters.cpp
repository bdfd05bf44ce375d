#include "platform/foundation/NSURLCharacters.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::string_view digits = "0123456789ABCDEFabcdef";

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

} // namespace

bool isUnreserved(char character) {
    return isLetter(character) || isDigit(character) ||
           std::string_view("-._~").find(character) != std::string_view::npos;
}

bool isReserved(char character) {
    return std::string_view(":/?#[]@!$&'()*+,;=").find(character) != std::string_view::npos;
}

bool isScheme(std::string_view text) {
    return !text.empty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), [](char character) {
        return isLetter(character) || isDigit(character) || character == '+' || character == '-' || character == '.';
    });
}

std::string percentEncoded(std::string_view text, std::string_view literal) {
    std::string encoded;
    for (const char character : text) {
        if (isUnreserved(character) || literal.find(character) != std::string_view::npos) {
            encoded += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            encoded += {'%', digits[byte >> 4], digits[byte & 0xF]};
        }
    }
    return encoded;
}

std::optional<char> decodedByte(std::string_view text) {
    if (text.size() < 3 || text[0] != '%') {
        return std::nullopt;
    }
    unsigned byte = 0;
    for (const char character : text.substr(1, 2)) {
        const std::size_t digit = digits.find(character);
        if (digit == std::string_view::npos) {
            return std::nullopt;
        }
        byte = byte * 16 + static_cast<unsigned>(digit < 16 ? digit : digit - 6);
    }
    return static_cast<char>(byte);
}

std::string percentDecoded(std::string_view text) {
    std::string decoded;
    while (!text.empty()) {
        const std::optional<char> byte = decodedByte(text);
        decoded += byte.value_or(text.front());
        text.remove_prefix(byte ? 3 : 1);
    }
    return decoded;
}
