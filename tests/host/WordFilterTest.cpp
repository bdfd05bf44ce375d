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
        {"a letter into an empty field", "", {0, 0}, "a", true},
        {"the tenth letter", "abcdefghi", {9, 0}, "j", true},
        {"the eleventh letter", "abcdefghij", {10, 0}, "k", false},
        {"a letter in place of another in a full field", "abcdefghij", {3, 1}, "X", true},
        {"three letters after eight", "abcdefgh", {8, 0}, "ijk", false},
        {"two letters after eight", "abcdefgh", {8, 0}, "ij", true},
        {"a space", "", {0, 0}, " ", false},
        {"letters with a digit", "", {0, 0}, "ab1", false},
        {"an accented letter", "", {0, 0}, "é", false},
        {"a Greek letter that looks like A", "", {0, 0}, "Α", false},
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
    for (char character = 0; character < 127; ++character) {
        const bool isLetter = (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
        EXPECT_EQ(wordFilterAccepts("", {0, 0}, std::string(1, character)), isLetter) << static_cast<int>(character);
    }
}
