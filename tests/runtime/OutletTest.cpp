#include "platform/runtime/Outlet.h"

#include "platform/runtime/NSObject.h"

#include <gtest/gtest.h>

namespace {

class Label : public NSObject {
public:
    int value = 3;
};

} // namespace

TEST(Outlet, FollowsAConnectedObject) {
    const auto label = std::make_shared<Label>();
    Outlet<Label> outlet("lblTitle");
    outlet = label;
    EXPECT_EQ(outlet->value, 3);
    EXPECT_TRUE(outlet.is(*label));
    EXPECT_FALSE(outlet.is(*std::make_shared<Label>()));
}

TEST(OutletDeathTest, FollowingAnUnconnectedOneStopsWithItsName) {
    const Outlet<Label> never("lblTitle");
    EXPECT_DEATH((void)never->value, "outlet lblTitle is not connected");
    Outlet<Label> gone("imgArrow");
    gone = std::make_shared<Label>();
    EXPECT_DEATH((void)(*gone).value, "outlet imgArrow is not connected");
}
