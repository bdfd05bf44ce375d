#include "tests/simulator/ConversationFixture.h"

#include "game/CategoriesVC.h"
#include "platform/foundation/NSBundle.h"
#include "platform/uikit/UIStoryboard.h"

#include <algorithm>
#include <malloc.h>

namespace {

using namespace std::chrono_literals;

class EnduranceTest : public ConversationTest {
protected:
    std::weak_ptr<UIViewController> screen() { return host->controller()->childViewControllers().at(0); }
};

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool countsMemory = false; // the sanitizers keep what is freed
#else
constexpr bool countsMemory = true;
#endif

TEST_F(EnduranceTest, AThousandActivationsLeaveOneScreenAndNoMemoryBehind) {
    std::vector<std::weak_ptr<UIViewController>> screens;
    std::size_t settled = 0;
    for (int i = 0; i < 1000; ++i) {
        host->activate(nullptr);
        screens.push_back(screen());
        if (i % 10 == 9) { // the others are replaced before their content is read
            host->advance(600ms);
            static_cast<void>(support::takeStandardOutput());
        }
        if (i == 199) {
            settled = mallinfo2().uordblks;
        }
    }
    const auto alive = std::count_if(screens.begin(), screens.end(), [](const auto& weak) { return !weak.expired(); });
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(host->styleRequests().size(), 1000u);
    if (countsMemory) {
        EXPECT_LT(mallinfo2().uordblks, settled + (std::size_t{1} << 20)) << "grew over 800 activations";
    }
    host->close();
    EXPECT_TRUE(screens.back().expired());
}

TEST_F(EnduranceTest, SeveralScreensLoadAtOnce) {
    const auto storyboard = UIStoryboard::storyboardWithNameBundle("MainInterface", NSBundle::mainBundle());
    std::vector<std::shared_ptr<CategoriesVC>> screens;
    for (int i = 0; i < 8; ++i) {
        screens.push_back(std::dynamic_pointer_cast<CategoriesVC>(
            storyboard->instantiateViewControllerWithIdentifier("CategoriesVC")));
        static_cast<void>(screens.back()->view());
    }
    MainRunLoop::shared().runUntilIdle();
    for (const auto& loaded : screens) {
        EXPECT_EQ(loaded->arrAllCategories().size(), 11u);
    }
}

class DroppedScreenTest : public ConversationTest {
protected:
    DroppedScreenTest() : ConversationTest({{"Friends.json", std::nullopt}}) {}
};

TEST_F(DroppedScreenTest, LoadsNothing) {
    MainRunLoop::shared().setBackgroundLatency(100ms);
    host->activate(nullptr);
    host->advance(50ms);
    host->activate(nullptr);
    host->advance(400ms);
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\nwillBecomeActive\n❌ JSON file not found: Friends\n");
}

} // namespace
