#include "platform/foundation/Text.h"

#include <algorithm>
#include <array>
#include <utf8proc.h>

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

struct CodePoint {
    utf8proc_int32_t value = -1; // negative: not valid UTF-8
    std::size_t bytes = 1;

    [[nodiscard]] bool isValid() const { return value >= 0; }
    [[nodiscard]] std::size_t units() const { return value > 0xFFFF ? 2 : 1; }
};

const utf8proc_uint8_t* bytesOf(std::string_view text) {
    return reinterpret_cast<const utf8proc_uint8_t*>(text.data());
}

bool isAscii(utf8proc_int32_t value) {
    return value >= 0 && value < 0x80;
}

/// Interface files and lists are nearly all ASCII, for which the library's tables are not needed.
CodePoint firstCodePoint(std::string_view text) {
    if (const auto first = static_cast<unsigned char>(text.front()); isAscii(first)) {
        return {first, 1};
    }
    utf8proc_int32_t value = -1;
    const utf8proc_ssize_t bytes =
        utf8proc_iterate(bytesOf(text), static_cast<utf8proc_ssize_t>(std::min<std::size_t>(text.size(), 4)), &value);
    return bytes > 0 ? CodePoint{value, static_cast<std::size_t>(bytes)} : CodePoint{};
}

CodePoint lastCodePoint(std::string_view text) {
    const std::size_t longest = std::min<std::size_t>(text.size(), 4);
    for (std::size_t bytes = 1; bytes <= longest; ++bytes) {
        const CodePoint found = firstCodePoint(text.substr(text.size() - bytes));
        if (found.isValid() && found.bytes == bytes) {
            return found;
        }
    }
    return {};
}

/// Calls `visit` with each code point and the bytes it was read from.
template <class Visit>
void forEachCodePoint(std::string_view text, Visit visit) {
    for (std::size_t at = 0; at < text.size();) {
        const CodePoint next = firstCodePoint(text.substr(at));
        visit(next, text.substr(at, next.bytes));
        at += next.bytes;
    }
}

void append(std::string& text, utf8proc_int32_t value) {
    std::array<utf8proc_uint8_t, 4> bytes{};
    const utf8proc_ssize_t count = utf8proc_encode_char(value, bytes.data());
    text.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(count));
}

/// Where code unit `unit` begins: a byte offset, and how many units before it belong to the character there (1 in the
/// middle of a surrogate pair).
struct Cut {
    std::size_t byte = 0;
    std::size_t unitsInside = 0;
};

Cut cutAt(std::string_view text, std::size_t unit) {
    std::size_t byte = 0;
    std::size_t passed = 0;
    while (byte < text.size() && passed < unit) {
        const CodePoint next = firstCodePoint(text.substr(byte));
        if (passed + next.units() > unit) {
            return {byte, unit - passed};
        }
        passed += next.units();
        byte += next.bytes;
    }
    return {byte, 0};
}

/// The platform's whitespace-and-newline set: tab, line breaks and Unicode's separators.
bool isWhitespaceOrNewline(utf8proc_int32_t value) {
    if (isAscii(value)) {
        return value == ' ' || (value >= 0x09 && value <= 0x0D);
    }
    if (value == 0x85) {
        return true;
    }
    const utf8proc_category_t category = utf8proc_category(value);
    return category == UTF8PROC_CATEGORY_ZS || category == UTF8PROC_CATEGORY_ZL || category == UTF8PROC_CATEGORY_ZP;
}

/// A lower-case letter that becomes several is found through its full case folding, which differs only in case.
void appendUppercase(std::string& text, utf8proc_int32_t value) {
    std::array<utf8proc_int32_t, 8> folded{value};
    int boundary = 0;
    utf8proc_ssize_t count = 1;
    if (utf8proc_category(value) == UTF8PROC_CATEGORY_LL) {
        count = utf8proc_decompose_char(value, folded.data(), static_cast<utf8proc_ssize_t>(folded.size()),
                                        UTF8PROC_CASEFOLD, &boundary);
    }
    if (count <= 1) {
        append(text, utf8proc_toupper(value));
        return;
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        append(text, utf8proc_toupper(folded[i]));
    }
}

std::string mapped(std::string_view text, void (*appendMapped)(std::string&, utf8proc_int32_t)) {
    std::string result;
    result.reserve(text.size());
    forEachCodePoint(text, [&](CodePoint next, std::string_view bytes) {
        next.isValid() ? appendMapped(result, next.value) : void(result += bytes);
    });
    return result;
}

} // namespace

bool isValidUTF8(std::string_view text) {
    bool isValid = true;
    forEachCodePoint(text, [&](CodePoint next, std::string_view) { isValid = isValid && next.isValid(); });
    return isValid;
}

std::size_t utf16Length(std::string_view text) {
    std::size_t units = 0;
    forEachCodePoint(text, [&](CodePoint next, std::string_view) { units += next.units(); });
    return units;
}

std::size_t characterCount(std::string_view text) {
    std::size_t characters = 0;
    utf8proc_int32_t state = 0;
    utf8proc_int32_t previous = -1;
    forEachCodePoint(text, [&](CodePoint next, std::string_view) {
        const bool joins =
            previous >= 0 && next.isValid() && !utf8proc_grapheme_break_stateful(previous, next.value, &state);
        characters += joins ? 0 : 1;
        state = next.isValid() ? state : 0;
        previous = next.value;
    });
    return characters;
}

std::string stringByReplacingCharactersInRange(std::string_view text, NSRange range, std::string_view replacement) {
    const Cut start = cutAt(text, range.location);
    const std::size_t untilEnd = static_cast<std::size_t>(-1) - range.location;
    const Cut end = cutAt(text, range.location + std::min(range.length, untilEnd));
    std::string result(text.substr(0, start.byte));
    if (start.unitsInside > 0) {
        result += replacementCharacter;
    }
    result += replacement;
    std::string_view rest = text.substr(end.byte);
    if (end.unitsInside > 0) {
        result += replacementCharacter;
        rest.remove_prefix(firstCodePoint(rest).bytes);
    }
    return result.append(rest);
}

std::string_view trimmingWhitespaceAndNewlines(std::string_view text) {
    while (!text.empty() && isWhitespaceOrNewline(firstCodePoint(text).value)) {
        text.remove_prefix(firstCodePoint(text).bytes);
    }
    while (!text.empty() && isWhitespaceOrNewline(lastCodePoint(text).value)) {
        text.remove_suffix(lastCodePoint(text).bytes);
    }
    return text;
}

std::string uppercased(std::string_view text) {
    return mapped(text, appendUppercase);
}

std::string lowercased(std::string_view text) {
    return mapped(text, [](std::string& made, utf8proc_int32_t value) { append(made, utf8proc_tolower(value)); });
}
