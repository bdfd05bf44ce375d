#include "platform/foundation/NSUUID.h"

#include <cstddef>
#include <random>

namespace {

constexpr std::string_view digits = "0123456789ABCDEFabcdef";

bool isHyphenAt(std::size_t index) {
    return index == 8 || index == 13 || index == 18 || index == 23;
}

} // namespace

NSUUID NSUUID::UUID() {
    std::random_device random;
    std::uniform_int_distribution<unsigned> byte(0, 255);
    Bytes bytes{};
    for (std::uint8_t& each : bytes) {
        each = static_cast<std::uint8_t>(byte(random));
    }
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40); // version 4: random
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return NSUUID(bytes);
}

std::optional<NSUUID> NSUUID::UUIDWithString(std::string_view text) {
    if (text.size() != 36) {
        return std::nullopt;
    }
    Bytes bytes{};
    std::size_t digitsRead = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isHyphenAt(i) != (text[i] == '-')) {
            return std::nullopt;
        }
        if (isHyphenAt(i)) {
            continue;
        }
        const std::size_t digit = digits.find(text[i]);
        if (digit == std::string_view::npos) {
            return std::nullopt;
        }
        std::uint8_t& byte = bytes[digitsRead++ / 2];
        byte = static_cast<std::uint8_t>(byte * 16 + (digit < 16 ? digit : digit - 6));
    }
    return NSUUID(bytes);
}

std::string NSUUID::UUIDString() const {
    std::string text;
    for (const std::uint8_t byte : m_bytes) {
        if (isHyphenAt(text.size())) {
            text += '-';
        }
        text += {digits[byte >> 4], digits[byte & 0xF]};
    }
    return text;
}
