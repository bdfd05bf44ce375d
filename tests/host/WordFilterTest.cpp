#include "host/WordFilter.h"

#include <gtest/gtest.h>

TEST(WordFilter, TakesLettersUpToTenCodeUnitsAndEveryDeletion) {
    const struct {
        const char* name;
        std::string text;
        NSRange range;
        std::string replacement;
        bool accepted;
    } cases[] = {
        {"the tenth letter", "abcdefghi", {9, 0}, "j", true},
        {"the eleventh letter", "abcdefghij", {10, 0}, "k", false},
        {"three letters after eight", "abcdefgh", {8, 0}, "ijk", false},
        {"letters with a digit", "", {0, 0}, "ab1", false},
        {"an emoji", "", {0, 0}, "😀", false},
        {"a deletion", "abc", {2, 1}, "", true},
        {"a deletion in a text that is too long", "abcdefghijklmnop", {15, 1}, "", true},
        {"one letter after five emoji, each of two units", "😀😀😀😀😀", {10, 0}, "a", false},
        {"one letter in place of an emoji", "😀😀😀😀😀", {8, 2}, "a", true},
        {"one letter after nine accented ones of two bytes", "ééééééééé", {9, 0}, "a", true},
    };
    for (const auto& sample : cases) {
        EXPECT_EQ(wordFilterAccepts(sample.text, sample.range, sample.replacement), sample.accepted) << sample.name;
    }
}

TEST(WordFilter, TakesLettersOnly) {
    EXPECT_FALSE(wordFilterAccepts("", {0, 0}, "é"));
    for (char character = 0; character < 127; ++character) {
        const bool isLetter = (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
        EXPECT_EQ(wordFilterAccepts("", {0, 0}, std::string(1, character)), isLetter) << static_cast<int>(character);
    }
}
