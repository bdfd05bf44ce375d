#include "platform/foundation/NSUUID.h"

#include <gtest/gtest.h>

TEST(NSUUID, IsComparedAsAnIdentifierAndNotAsText) {
    const auto upper = NSUUID::UUIDWithString("E621E1F8-C36C-495A-93FC-0C247A3E6E5F");
    const auto lower = NSUUID::UUIDWithString("e621e1f8-c36c-495a-93fc-0c247a3e6e5f");
    ASSERT_TRUE(upper && lower);
    EXPECT_EQ(*upper, *lower);
    EXPECT_EQ(lower->UUIDString(), "E621E1F8-C36C-495A-93FC-0C247A3E6E5F");
    EXPECT_NE(*upper, *NSUUID::UUIDWithString("E621E1F8-C36C-495A-93FC-0C247A3E6E5E"));
}

TEST(NSUUID, IsNotMadeFromOtherText) {
    for (const char* text :
         {"", "E621E1F8", "E621E1F8-C36C-495A-93FC-0C247A3E6E5", "E621E1F8-C36C-495A-93FC-0C247A3E6E5FF",
          "E621E1F8-C36C-495A-93FC00C247A3E6E5F", "G621E1F8-C36C-495A-93FC-0C247A3E6E5F"}) {
        EXPECT_FALSE(NSUUID::UUIDWithString(text)) << text;
    }
}

TEST(NSUUID, IsNewEveryTime) {
    const NSUUID first = NSUUID::UUID();
    EXPECT_NE(first, NSUUID::UUID());
    EXPECT_EQ(NSUUID::UUIDWithString(first.UUIDString()), first);
}
