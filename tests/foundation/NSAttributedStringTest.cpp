#include "platform/foundation/NSAttributedString.h"

#include "tests/support/Output.h"

#include <gtest/gtest.h>

namespace {

const NSParagraphStyle loose{4, NSTextAlignment::center};
const NSParagraphStyle tight{0, NSTextAlignment::right};

} // namespace

TEST(NSAttributedString, HoldsAStyleOverARange) {
    NSMutableAttributedString text("a😀b");
    EXPECT_EQ(text.length(), 4U);
    text.addAttributeValueRange(NSParagraphStyleAttributeName, loose, NSMakeRange(1, 2));
    EXPECT_EQ(text.paragraphStyleAt(0), std::nullopt);
    EXPECT_EQ(text.paragraphStyleAt(2), loose);
    EXPECT_EQ(text.paragraphStyleAt(3), std::nullopt);
}

TEST(NSAttributedString, TheLaterStyleWins) {
    NSMutableAttributedString text("abc");
    text.addAttributeValueRange(NSParagraphStyleAttributeName, loose, NSMakeRange(0, 3));
    text.addAttributeValueRange(NSParagraphStyleAttributeName, tight, NSMakeRange(1, 1));
    EXPECT_EQ(text.paragraphStyleAt(1), tight);
    EXPECT_EQ(text.paragraphStyleAt(2), loose);
}

TEST(NSAttributedString, TheWholeOfAnEmptyTextIsARange) {
    NSMutableAttributedString text("");
    text.addAttributeValueRange(NSParagraphStyleAttributeName, loose, NSMakeRange(0, 0));
    EXPECT_EQ(text.paragraphStyleAt(0), std::nullopt);
}

TEST(NSAttributedStringDeathTest, ARangeBeyondTheEndStopsTheProgram) {
    NSMutableAttributedString text("abc");
    EXPECT_DEATH(text.addAttributeValueRange(NSParagraphStyleAttributeName, loose, NSMakeRange(2, 2)),
                 "beyond the end of its text");
}
