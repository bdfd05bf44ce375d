#include "platform/foundation/NSAttributedString.h"

#include <gtest/gtest.h>

namespace {

const NSParagraphStyle loose{4, NSTextAlignment::center};
const NSParagraphStyle tight{0, NSTextAlignment::right};

} // namespace

TEST(NSAttributedString, HoldsAStyleOverARange) {
    NSMutableAttributedString text("a😀b");
    EXPECT_EQ(text.length(), 4U);
    text.addAttributeValueRange(NSParagraphStyleAttributeName, loose, NSMakeRange(1, 3));
    text.addAttributeValueRange(NSParagraphStyleAttributeName, tight, NSMakeRange(3, 1));
    EXPECT_EQ(text.paragraphStyleAt(0), std::nullopt);
    EXPECT_EQ(text.paragraphStyleAt(2), loose);
    EXPECT_EQ(text.paragraphStyleAt(3), tight) << "the later one counts";
    NSMutableAttributedString("").addAttributeValueRange(NSParagraphStyleAttributeName, loose, NSMakeRange(0, 0));
}

TEST(NSAttributedStringDeathTest, ARangeBeyondTheEndStopsTheProgram) {
    NSMutableAttributedString text("abc");
    EXPECT_DEATH(text.addAttributeValueRange(NSParagraphStyleAttributeName, loose, NSMakeRange(2, 2)),
                 "beyond the end of its text");
}
