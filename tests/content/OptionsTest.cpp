#include "content/CurrentOption.h"
#include "content/DropdownRows.h"
#include "content/MoreGameTypes.h"

#include <gtest/gtest.h>

TEST(Options, AreFoundByTheirExactTextOnly) {
    EXPECT_EQ(currentOptionFromRawValue("Who\xE2\x80\x99s Most Likely"), CurrentOption::WhoIsMostLikely);
    EXPECT_EQ(moreGameTypesFromRawValue("Who\xE2\x80\x99s Most Likely"), MoreGameTypes::WhoIsMostLikely);
    EXPECT_EQ(moreGameTypesFromRawValue("None"), MoreGameTypes::None);
    EXPECT_EQ(rawValue(MoreGameTypes::None), "None");
    for (const char* text : {"Who's Most Likely", "adult (18+)", "dating", "Family ", "none", ""}) {
        EXPECT_FALSE(currentOptionFromRawValue(text)) << text;
        EXPECT_FALSE(moreGameTypesFromRawValue(text)) << text;
    }
    EXPECT_FALSE(currentOptionFromRawValue("None"));
    EXPECT_FALSE(moreGameTypesFromRawValue("Friends"));
    for (const CurrentOption option : contentLoadOrder()) {
        EXPECT_EQ(currentOptionFromRawValue(rawValue(option)), option) << rawValue(option);
    }
}

TEST(DropdownRows, StandForTheOptionWhoseTitleTheyShow) {
    EXPECT_EQ(playerGroupTitles(), (std::vector<std::string>{"Adult (18+)", "Friends", "Couple", "Family"}));
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(rawValue(playerGroupOption(row)), playerGroupTitles()[static_cast<std::size_t>(row)]);
    }
    EXPECT_EQ(playerGroupOption(-1), CurrentOption::Family);
    EXPECT_EQ(playerGroupOption(4), CurrentOption::Family);
    int row = 0;
    for (const std::string& title : gameTypeTitles()) {
        EXPECT_EQ(rawValue(gameTypeOption(row++).value()), title);
        EXPECT_EQ(rawValue(moreGameTypesFromRawValue(title).value()), title);
    }
    EXPECT_EQ(row, 7);
    EXPECT_FALSE(gameTypeOption(-1));
    EXPECT_FALSE(gameTypeOption(7));
}
