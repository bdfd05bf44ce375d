#include "platform/foundation/Text.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

TEST(Text, LengthCountsUtf16CodeUnits) {
    EXPECT_EQ(utf16Length(""), 0U);
    EXPECT_EQ(utf16Length("Who’s"), 5U);
    EXPECT_EQ(utf16Length("a😀b"), 4U);
    EXPECT_EQ(utf16Length("a\0b"s), 3U);
    EXPECT_EQ(utf16Length("a\xFF\xFE"), 3U);
}

TEST(Text, CharactersAreWhatAPersonSees) {
    EXPECT_EQ(characterCount(""), 0U);
    EXPECT_EQ(characterCount("4DA289"), 6U);
    EXPECT_EQ(characterCount("e\u0301te\u0301"), 3U);
    EXPECT_EQ(characterCount("👨‍👩‍👧‍👦"), 1U);
    EXPECT_EQ(characterCount("🇩🇪🇫🇷"), 2U);
    EXPECT_EQ(characterCount("👍🏽!"), 2U);
    EXPECT_EQ(characterCount("\r\n"), 1U);
    EXPECT_EQ(characterCount("a\xFF\xCC\x81"), 3U) << "nothing joins a byte that is no character";
}

TEST(Text, ValidUtf8IsToldFromBrokenBytes) {
    EXPECT_TRUE(isValidUTF8("Truth ❌ 😀"));
    for (const char* broken : {"\xFF", "a\x80", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
        EXPECT_FALSE(isValidUTF8(broken)) << testing::PrintToString(broken);
    }
}

TEST(Text, ReplacingCountsUtf16CodeUnits) {
    EXPECT_EQ(stringByReplacingCharactersInRange("", NSMakeRange(0, 0), "a"), "a");
    EXPECT_EQ(stringByReplacingCharactersInRange("hello", NSMakeRange(1, 3), "u"), "huo");
    EXPECT_EQ(stringByReplacingCharactersInRange("a😀b", NSMakeRange(1, 2), "x"), "axb");
    EXPECT_EQ(stringByReplacingCharactersInRange("a😀b", NSMakeRange(3, 0), "x"), "a😀xb");
}

TEST(Text, ReplacingStopsAtTheEndOfTheText) {
    EXPECT_EQ(stringByReplacingCharactersInRange("ab", NSMakeRange(1, 9), "x"), "ax");
    EXPECT_EQ(stringByReplacingCharactersInRange("ab", NSMakeRange(7, static_cast<std::size_t>(-1)), "x"), "abx");
}

TEST(Text, ReplacingHalfASurrogatePairLeavesAReplacementCharacter) {
    EXPECT_EQ(stringByReplacingCharactersInRange("a😀b", NSMakeRange(1, 1), "x"), "ax\uFFFDb");
    EXPECT_EQ(stringByReplacingCharactersInRange("a😀b", NSMakeRange(2, 1), ""), "a\uFFFDb");
}

TEST(Text, TrimmingRemovesEverySpaceAndLineBreakAtBothEndsOnly) {
    EXPECT_EQ(trimmingWhitespaceAndNewlines(" \t4D A2\r\n"), "4D A2");
    EXPECT_EQ(trimmingWhitespaceAndNewlines("\u00A0\u2003\u3000\u2028x\u2029\u0085\v\f"), "x");
    EXPECT_EQ(trimmingWhitespaceAndNewlines("\u200B#"), "\u200B#") << "a zero-width space is no white space";
    EXPECT_EQ(trimmingWhitespaceAndNewlines(" \n "), "");
    EXPECT_EQ(trimmingWhitespaceAndNewlines(" \xFF \x80 "), "\xFF \x80");
}

TEST(Text, CaseMappingCoversUnicode) {
    EXPECT_EQ(uppercased("#4da289 é я ß ﬁ 😀"), "#4DA289 É Я SS FI 😀");
    EXPECT_EQ(lowercased("Adult (18+) ÉЯẞ"), "adult (18+) éяß");
    EXPECT_EQ(uppercased("a\xFF"), "A\xFF");
}
