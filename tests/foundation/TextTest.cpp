#include "platform/foundation/Text.h"

#include "platform/foundation/NSAttributedString.h"
#include "platform/foundation/NSScanner.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

TEST(Text, LengthCountsUtf16CodeUnits) {
    EXPECT_EQ(utf16Length("Who’s a😀b\0"s), 11U);
    EXPECT_EQ(utf16Length("a\xFF\xFE"), 3U);
}

TEST(Text, CharactersAreWhatAPersonSees) {
    EXPECT_EQ(characterCount(""), 0U);
    EXPECT_EQ(characterCount("e\u0301te\u0301"), 3U);
    EXPECT_EQ(characterCount("👨‍👩‍👧‍👦"), 1U);
    EXPECT_EQ(characterCount("🇩🇪🇫🇷"), 2U);
    EXPECT_EQ(characterCount("👍🏽!"), 2U);
    EXPECT_EQ(characterCount("\r\n"), 1U);
    EXPECT_EQ(characterCount("a\xFF\xCC\x81"), 3U) << "nothing joins a byte that is no character";
}

TEST(Text, ReplacingCountsUtf16CodeUnitsAndStopsAtTheEnd) {
    const auto replaced = [](const char* text, std::size_t location, std::size_t length) {
        return stringByReplacingCharactersInRange(text, NSMakeRange(location, length), "x");
    };
    EXPECT_EQ(replaced("", 0, 0), "x");
    EXPECT_EQ(replaced("hello", 1, 3), "hxo");
    EXPECT_EQ(replaced("a😀b", 1, 2), "axb");
    EXPECT_EQ(replaced("a😀b", 3, 0), "a😀xb");
    EXPECT_EQ(replaced("ab", 1, 9), "ax");
    EXPECT_EQ(replaced("ab", 7, static_cast<std::size_t>(-1)), "abx");
    EXPECT_EQ(replaced("a😀b", 1, 1), "ax\uFFFDb") << "half a pair of surrogates becomes a replacement character";
    EXPECT_EQ(replaced("a😀b", 2, 1), "a\uFFFDxb");
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

TEST(NSScanner, ReadsWhatIsTooLargeAsTheGreatestNumberAndLeavesTheValueAloneWithoutADigit) {
    std::uint64_t value = 7;
    EXPECT_FALSE(NSScanner(" FF").scanHexLongLong(value));
    EXPECT_EQ(value, 7U);
    EXPECT_TRUE(NSScanner("123456789ABCDEF012").scanHexLongLong(value));
    EXPECT_EQ(value, UINT64_MAX);
}

TEST(NSAttributedString, HoldsTheLastStyleOfAStretchAndStopsTheProgramForOneBeyondTheEnd) {
    const NSParagraphStyle loose{4, NSTextAlignment::center};
    const NSParagraphStyle tight{0, NSTextAlignment::right};
    NSMutableAttributedString text("a😀b");
    text.addAttributeValueRange(NSParagraphStyleAttributeName, loose, NSMakeRange(1, 3));
    text.addAttributeValueRange(NSParagraphStyleAttributeName, tight, NSMakeRange(3, 1));
    EXPECT_EQ(text.paragraphStyleAt(0), std::nullopt);
    EXPECT_EQ(text.paragraphStyleAt(2), loose);
    EXPECT_EQ(text.paragraphStyleAt(3), tight);
    EXPECT_DEATH(text.addAttributeValueRange(NSParagraphStyleAttributeName, loose, NSMakeRange(3, 2)),
                 "beyond the end of its text");
}
