#include "platform/foundation/NSScanner.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

std::uint64_t hexadecimal(const std::string& text) {
    std::uint64_t value = 0;
    (void)NSScanner(text).scanHexLongLong(value);
    return value;
}

} // namespace

TEST(NSScanner, ReadsDigitsUpToTheFirstOtherCharacter) {
    EXPECT_EQ(hexadecimal("4DA289"), 0x4DA289U);
    EXPECT_EQ(hexadecimal("dddDDD"), 0xDDDDDDU);
    EXPECT_EQ(hexadecimal("12G456"), 0x12U);
    EXPECT_EQ(hexadecimal("+12"), 0U);
    EXPECT_EQ(hexadecimal("0x12AB"), 0U) << "it knows no prefix";
    EXPECT_EQ(hexadecimal(" \n\u00A0FF"), 0xFFU) << "white space in front is skipped";
    EXPECT_EQ(hexadecimal("FFFFFFFFFFFFFFFF"), UINT64_MAX);
    EXPECT_EQ(hexadecimal("123456789ABCDEF012"), UINT64_MAX) << "too large";
}

TEST(NSScanner, LeavesTheValueAloneWhenThereIsNoNumber) {
    std::uint64_t value = 7;
    EXPECT_FALSE(NSScanner("xyz").scanHexLongLong(value));
    EXPECT_EQ(value, 7U);
}

TEST(NSScanner, ContinuesWhereItStopped) {
    NSScanner scanner("A B");
    std::uint64_t value = 0;
    EXPECT_TRUE(scanner.scanHexLongLong(value));
    EXPECT_TRUE(scanner.scanHexLongLong(value));
    EXPECT_EQ(value, 0xBU);
    EXPECT_FALSE(scanner.scanHexLongLong(value));
}
