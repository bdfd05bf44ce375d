#include "tests/simulator/SimulatorFixtures.h"

#include <algorithm>
#include <malloc.h>

namespace {

using namespace std::chrono_literals;

using EnduranceTest = ConversationTest;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool countsMemory = false; // the sanitizers keep what is freed
#else
constexpr bool countsMemory = true;
#endif

TEST_F(EnduranceTest, AThousandActivationsLeaveOneScreenAndNoMemoryBehind) {
    std::vector<std::weak_ptr<UIViewController>> screens;
    std::size_t settled = 0;
    const auto conversation = std::make_shared<MSConversation>(std::vector{NSUUID::UUID()}, nullptr);
    for (int i = 0; i < 1000; ++i) {
        if (i % 10 == 0) {
            host->activate(nullptr);
            host->advance(600ms);
            static_cast<void>(support::takeStandardOutput());
        } else { // replaced before it is laid out and its content is read
            host->controller()->willBecomeActiveWithConversation(conversation);
        }
        screens.push_back(host->controller()->childViewControllers().at(0));
        if (i == 200) {
            settled = mallinfo2().uordblks;
        }
    }
    host->advance(600ms);
    const auto alive = std::count_if(screens.begin(), screens.end(), [](const auto& weak) { return !weak.expired(); });
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(host->styleRequests().size(), 1000u);
    if (countsMemory) {
        EXPECT_LT(mallinfo2().uordblks, settled + (std::size_t{1} << 20)) << "grew over 800 activations";
    }
    const std::weak_ptr<UIViewController> controller = host->controller();
    host->close();
    EXPECT_TRUE(controller.expired());
    EXPECT_TRUE(screens.back().expired());
}

} // namespace
