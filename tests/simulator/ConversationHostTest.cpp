#include "tests/simulator/SimulatorFixtures.h"

namespace {

using Style = MSMessagesAppPresentationStyle;

using ConversationHostTest = ConversationTest;

TEST_F(ConversationHostTest, AnswersAStyleRequestLaterWithBothTransitionCallbacks) {
    host->activate(nullptr);
    host->controller()->requestPresentationStyle(Style::expanded);
    EXPECT_EQ(host->style(), Style::compact) << "not inside the request";
    host->settle();
    EXPECT_EQ(host->style(), Style::expanded);
    ASSERT_EQ(host->styleRequests().size(), 1u);
    EXPECT_TRUE(host->styleRequests()[0].changed);
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\nwillTransition\ndidTransition\n");
    EXPECT_EQ(host->window().frame(), host->device().expandedFrame());
    EXPECT_EQ(host->controller()->view()->bounds().size, host->device().expandedFrame().size);
}

TEST(DeviceTest, IsKnownByNameOrDescribedBySize) {
    EXPECT_EQ(deviceNamed("se").value().size, (CGSize{320, 568}));
    EXPECT_EQ(deviceNamed("390x844@3").value().size, (CGSize{390, 844}));
    EXPECT_EQ(deviceNamed("390x844@3").value().scale, 3);
    for (const char* name : {"", "x", "390x844", "390x844@0", "390x844@4", "10x844@3", "390x844@3x", "-390x844@3",
                             "9999x9999@3", "4096x8192@1"}) {
        EXPECT_FALSE(deviceNamed(name)) << name;
    }
}

} // namespace
