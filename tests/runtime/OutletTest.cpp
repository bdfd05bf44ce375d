#include "platform/runtime/Outlet.h"

#include "tests/runtime/RuntimeClasses.h"

#include <gtest/gtest.h>

namespace {

class Label : public NSObject {
public:
    int value = 3;
};

} // namespace

TEST(Outlet, FollowsAConnectedObject) {
    const auto label = std::make_shared<Label>();
    const NSObject owner;
    Outlet<Label> outlet(&owner, "lblTitle");
    outlet = label;
    EXPECT_EQ(outlet->value, 3);
    EXPECT_TRUE(outlet.is(*label));
    EXPECT_FALSE(outlet.is(*std::make_shared<Label>()));
}

TEST(OutletDeathTest, FollowingAnUnconnectedOneStopsWithItsNameAndItsOwnersPlace) {
    registerTestClasses();
    const auto owner = std::make_shared<Base>();
    EXPECT_DEATH((void)owner->panel->radius, "^Fatal error: Base: the outlet panel is not connected\n$");
    const auto file = std::make_shared<const std::string>("Main.storyboard");
    setSourceLocation(*owner, {file, {12, 9}, "<view id=\"v\">"});
    owner->panel = std::make_shared<Part>(); // gone at once
    EXPECT_DEATH((void)(*owner->panel).radius,
                 "Main.storyboard:12:9: error: Base <view id=\"v\">: the outlet panel is not connected\n$");
}
