#include "platform/foundation/NSScanner.h"

#include "platform/foundation/Text.h"

#include <limits>
#include <optional>
#include <string_view>

namespace {

std::optional<unsigned> hexadecimalDigit(char character) {
    if (character >= '0' && character <= '9') {
        return static_cast<unsigned>(character - '0');
    }
    if (character >= 'A' && character <= 'F') {
        return static_cast<unsigned>(character - 'A' + 10);
    }
    if (character >= 'a' && character <= 'f') {
        return static_cast<unsigned>(character - 'a' + 10);
    }
    return std::nullopt;
}

} // namespace

bool NSScanner::scanHexLongLong(std::uint64_t& value) {
    constexpr std::uint64_t greatest = std::numeric_limits<std::uint64_t>::max();
    const std::string_view rest = std::string_view(m_text).substr(m_location);
    const auto start = static_cast<std::size_t>(trimmingWhitespaceAndNewlines(rest).data() - rest.data());
    std::size_t location = start;
    std::uint64_t number = 0;
    for (; location < rest.size(); ++location) {
        const std::optional<unsigned> digit = hexadecimalDigit(rest[location]);
        if (!digit) {
            break;
        }
        number = number > (greatest >> 4) ? greatest : (number << 4) + *digit;
    }
    if (location == start) {
        return false;
    }
    m_location += location;
    value = number;
    return true;
}
