#include "content/CurrentOption.h"
#include "content/DropdownRows.h"
#include "content/MoreGameTypes.h"

#include <gtest/gtest.h>

TEST(Options, AreFoundByTheirExactTextOnly) {
    EXPECT_EQ(currentOptionFromRawValue("Adult (18+)"), CurrentOption::Adult_18_Plus);
    EXPECT_EQ(currentOptionFromRawValue("Who\xE2\x80\x99s Most Likely"), CurrentOption::WhoIsMostLikely);
    EXPECT_EQ(moreGameTypesFromRawValue("Who\xE2\x80\x99s Most Likely"), MoreGameTypes::WhoIsMostLikely);
    for (const char* text : {"Who's Most Likely", "adult (18+)", "Family ", "None", ""}) {
        EXPECT_FALSE(currentOptionFromRawValue(text)) << text;
    }
    for (const char* text : {"Who's Most Likely", "dating", "Friends", "none", ""}) {
        EXPECT_FALSE(moreGameTypesFromRawValue(text)) << text;
    }
    EXPECT_EQ(moreGameTypesFromRawValue("None"), MoreGameTypes::None);
}

TEST(Options, AllComeBackFromTheirOwnText) {
    for (const CurrentOption option : contentLoadOrder()) {
        EXPECT_EQ(currentOptionFromRawValue(rawValue(option)), option) << rawValue(option);
    }
    for (const std::string& title : gameTypeTitles()) {
        EXPECT_EQ(rawValue(moreGameTypesFromRawValue(title).value_or(MoreGameTypes::None)), title);
    }
}

TEST(DropdownRows, StandForTheOptionWhoseTitleTheyShow) {
    const std::vector<std::string> groups = playerGroupTitles();
    EXPECT_EQ(groups, (std::vector<std::string>{"Adult (18+)", "Friends", "Couple", "Family"}));
    for (std::size_t row = 0; row < groups.size(); ++row) {
        EXPECT_EQ(rawValue(playerGroupOption(static_cast<int>(row))), groups[row]);
    }
    EXPECT_EQ(playerGroupOption(-1), CurrentOption::Family);
    EXPECT_EQ(playerGroupOption(4), CurrentOption::Family);
    const std::vector<std::string> gameTypes = gameTypeTitles();
    ASSERT_EQ(gameTypes.size(), 7U);
    for (std::size_t row = 0; row < gameTypes.size(); ++row) {
        EXPECT_EQ(rawValue(gameTypeOption(static_cast<int>(row)).value()), gameTypes[row]);
    }
    EXPECT_FALSE(gameTypeOption(-1));
    EXPECT_FALSE(gameTypeOption(7));
}
