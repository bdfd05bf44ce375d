#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// A stretch of a text. Both numbers count UTF-16 code units.
struct NSRange {
    std::size_t location = 0;
    std::size_t length = 0;

    friend bool operator==(const NSRange&, const NSRange&) = default;
};

[[nodiscard]] constexpr NSRange NSMakeRange(std::size_t location, std::size_t length) {
    return {location, length};
}

/// Texts are UTF-8 in std::string. The platform counts UTF-16 code units, people count user-perceived characters:
/// these functions translate. A byte that is not valid UTF-8 counts as one character and one code unit. Any thread.

[[nodiscard]] bool isValidUTF8(std::string_view text);

/// The platform's `length` of a text.
[[nodiscard]] std::size_t utf16Length(std::string_view text);

/// How many characters a person sees (extended grapheme clusters).
[[nodiscard]] std::size_t characterCount(std::string_view text);

/// `stringByReplacingCharactersInRange:withString:`. What lies beyond the end is ignored; half of a surrogate pair that
/// a range leaves behind becomes U+FFFD.
[[nodiscard]] std::string stringByReplacingCharactersInRange(std::string_view text, NSRange range,
                                                             std::string_view replacement);

/// Without the members of the platform's whitespace-and-newline set at both ends.
[[nodiscard]] std::string_view trimmingWhitespaceAndNewlines(std::string_view text);

/// Unicode case mapping, no locale; a character may become several ("ß" becomes "SS").
[[nodiscard]] std::string uppercased(std::string_view text);
[[nodiscard]] std::string lowercased(std::string_view text);
