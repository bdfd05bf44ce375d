#include "platform/foundation/NSScanner.h"

#include <charconv>
#include <limits>

bool NSScanner::scanHexLongLong(std::uint64_t& value) const {
    std::uint64_t number = 0;
    const char* start = m_text.data();
    const auto [end, error] = std::from_chars(start, start + m_text.size(), number, 16);
    if (end == start) {
        return false;
    }
    value = error == std::errc::result_out_of_range ? std::numeric_limits<std::uint64_t>::max() : number;
    return true;
}
