#include "host/WordFilter.h"

#include "platform/foundation/Text.h"

#include <cstddef>

namespace {

constexpr std::size_t largestLength = 10;
constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

} // namespace

bool wordFilterAccepts(std::string_view text, NSRange range, std::string_view replacement) {
    if (replacement == " ") {
        return false;
    }
    const std::string proposed = stringByReplacingCharactersInRange(text, range, replacement);
    const bool lettersOnly = replacement.find_first_not_of(letters) == std::string_view::npos;
    if (utf16Length(proposed) <= largestLength && lettersOnly) {
        return true;
    }
    return replacement.empty();
}
