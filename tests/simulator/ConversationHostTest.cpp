#include "tests/simulator/SimulatorFixtures.h"

namespace {

using namespace std::chrono_literals;
using Style = MSMessagesAppPresentationStyle;

using ConversationHostTest = ConversationTest;

TEST_F(ConversationHostTest, AnswersAStyleRequestWithBothTransitionCallbacks) {
    host->activate(nullptr);
    host->advance(499ms);
    EXPECT_TRUE(host->styleRequests().empty());
    host->advance(1ms);
    ASSERT_EQ(host->styleRequests().size(), 1u);
    EXPECT_TRUE(host->styleRequests()[0].changed);
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\nwillTransition\ndidTransition\n");
    EXPECT_EQ(host->window().frame(), host->device().expandedFrame());
    EXPECT_EQ(host->controller()->view()->bounds().size, host->device().expandedFrame().size);
}

TEST_F(ConversationHostTest, DoesNotAnswerInsideTheRequest) {
    host->activate(nullptr);
    host->controller()->requestPresentationStyle(Style::expanded);
    EXPECT_EQ(host->style(), Style::compact);
    host->settle();
    EXPECT_EQ(host->style(), Style::expanded);
}

TEST_F(ConversationHostTest, KeepsNothingOfTheExtensionOnceItIsClosed) {
    host->activate(nullptr);
    host->advance(1s);
    const std::weak_ptr<UIViewController> controller = host->controller();
    const std::weak_ptr<UIViewController> screen = host->controller()->childViewControllers().at(0);
    host->close();
    EXPECT_TRUE(controller.expired());
    EXPECT_TRUE(screen.expired());
}

TEST(DeviceTest, IsKnownByNameOrDescribedBySize) {
    EXPECT_EQ(deviceNamed("se").value().size, (CGSize{320, 568}));
    EXPECT_EQ(deviceNamed("390x844@3").value().size, (CGSize{390, 844}));
    EXPECT_EQ(deviceNamed("390x844@3").value().scale, 3);
    for (const char* name : {"", "x", "390x844", "390x844@0", "390x844@4", "10x844@3", "390x844@3x", "-390x844@3"}) {
        EXPECT_FALSE(deviceNamed(name)) << name;
    }
}

} // namespace
