#include "platform/foundation/NSUUID.h"

#include <gtest/gtest.h>

TEST(NSUUID, IsNewEveryTime) {
    const NSUUID first = NSUUID::UUID();
    const NSUUID copy = first;
    EXPECT_NE(first, NSUUID::UUID());
    EXPECT_EQ(first, copy);
}
