#include "game/CategoriesVC.h"
#include "platform/foundation/FileReading.h"
#include "simulator/live/LiveSession.h"
#include "simulator/live/TouchableParts.h"
#include "simulator/pictures/ScreenPicture.h"
#include "tests/simulator/SimulatorFixtures.h"

#include <boost/json.hpp>

namespace {

using testing::HasSubstr;

/// A page that touches a phone through messages, as the server hands them on.
class FlowRecorderTest : public FlowTest {
protected:
    void start(const std::string& scene = "") {
        openExtensionBundle(scene.empty() ? bundle : bundle.parent_path() / "Canvas.appex");
        phone.emplace(LiveShow{"test",
                               scene,
                               deviceNamed("15").value(),
                               {"A", "B"},
                               {},
                               {},
                               [this, scene] {
                                   openExtensionBundle(scene.empty() ? bundle : bundle.parent_path() / "Canvas.appex");
                                   return Result<BundleFindings>(BundleFindings{});
                               },
                               [] {}});
        session.emplace(*phone, LiveSession::Out{[](auto, const auto&) {}, [](auto, const auto&) {},
                                                 [](auto, const std::string& why) { ADD_FAILURE() << why; }});
        session->came(1);
        letPass(std::chrono::milliseconds(600));
        waitUntil(
            [&](const CategoriesVC& screen) { return hasLists(screen) && !phone->host().styleRequests().empty(); });
    }
    /// However long a slow machine takes until the screen has it. The canvas has nothing to wait for.
    void waitUntil(const std::function<bool(const CategoriesVC&)>& has) {
        const auto isThere = [&] {
            const CategoriesVC* screen = shownCategoryScreen(phone->host());
            return screen == nullptr || has(*screen);
        };
        for (int turn = 0; !isThere() && turn < 1000; ++turn) {
            letPass(std::chrono::milliseconds(10));
        }
    }
    static bool hasLists(const CategoriesVC& screen) { return !screen.arrAllCategories().empty(); }
    void say(boost::json::object message) {
        session->said(1, boost::json::serialize(message));
        letPass(std::chrono::milliseconds(1));
    }
    /// As the program does: the session hears of every turn.
    void letPass(std::chrono::milliseconds time) {
        const auto end = std::chrono::steady_clock::now() + time;
        do {
            MainRunLoop::shared().advance(std::chrono::milliseconds(1));
            session->update();
        } while (std::chrono::steady_clock::now() < end);
    }
    void touch(const char* phase, double x, double y) {
        say({{"type", "touch"}, {"phase", phase}, {"x", x}, {"y", y}});
    }
    void stroke(const std::vector<CGPoint>& points) {
        touch("began", points.front().x, points.front().y);
        for (const CGPoint point : points) {
            touch("moved", point.x, point.y);
        }
        touch("ended", points.back().x, points.back().y);
    }
    CGPoint placeOf(const Selector& selector) {
        const auto element = ElementSearch(phone->host().window()).find(selector);
        const CGPoint point = element.value().pointToTouch().value();
        const CGPoint origin = phone->host().window().frame().origin;
        return {point.x + origin.x, point.y + origin.y};
    }
    void tap(const Selector& selector) {
        const CGPoint place = placeOf(selector);
        touch("began", place.x, place.y);
        touch("ended", place.x, place.y);
    }
    void tap(const std::string& text) { tap(Selector{.text = text, .id = {}, .index = {}}); }

    /// Ends the phone, plays its recording and compares what both show in the end.
    void expectTheSameWhenPlayed() {
        session->update();
        const std::string text = phone->recorder().text();
        const Bitmap shown = takePicture(phone->host(), PictureExtent::screen);
        session.reset();
        phone.reset();
        SCOPED_TRACE(text);
        const bool isCanvas = text.find("scene: ") != std::string::npos;
        openExtensionBundle(isCanvas ? bundle.parent_path() / "Canvas.appex" : bundle);
        Findings problems;
        const std::optional<Flow> flow = readFlow(text, "recorded.yaml", problems);
        ASSERT_TRUE(flow) << problems.front().describe();
        FlowPlayer player(*flow, deviceNamed(flow->device).value());
        const FlowResult result = player.play();
        EXPECT_TRUE(result.failures.empty()) << result.failures.front().describe();
        EXPECT_TRUE(takePicture(player.host(), PictureExtent::screen) == shown);
    }

    std::optional<LivePhone> phone;
    std::optional<LiveSession> session;
};

} // namespace

TEST_F(FlowRecorderTest, WritesTheTypicalRoadWithNames) {
    start();
    tap(Selector{.text = {}, .id = "btnDropdown", .index = {}});
    tap("Friends");
    say({{"type", "set"}, {"appearance", "dark"}});
    const std::string title =
        shownCategoryScreen(phone->host())->arrAllCategories().at("Friends").at(0).items().at(0).title();
    tap(title);
    EXPECT_EQ(phone->recorder().text().find("point"), std::string::npos) << phone->recorder().text();
    EXPECT_THAT(phone->recorder().text(), HasSubstr("- tapOn: \"" + title + "\"\n- assertLink: \"https://"));
    expectTheSameWhenPlayed();
}

TEST_F(FlowRecorderTest, WritesDragsWheelsStylesAndMessagesSoThatTheyEndInTheSamePicture) {
    start();
    say({{"type", "message"}, {"from", "B"}, {"text", "Look: \"here\""}, {"link", ""}});
    waitUntil([&](const CategoriesVC& screen) {
        return hasLists(screen) && phone->host().styleRequests().size() == 2; // the fresh screen has asked, too
    });
    stroke({{200, 700}, {200, 680}, {203, 500}, {201, 620.35}, {200, 430}});
    for (int step = 0; step < 7; ++step) {
        say({{"type", "wheel"}, {"x", 200}, {"y", 600}, {"dy", 13.3}});
    }
    say({{"type", "wheel"}, {"x", 200}, {"y", 600}, {"dy", -4}});
    say({{"type", "set"}, {"presentation", "compact"}});
    stroke({{200, 700}, {205, 640}});
    expectTheSameWhenPlayed();
}

TEST_F(FlowRecorderTest, WritesWhatWasDoneWhileLoadingAtItsTime) {
    start();
    say({{"type", "set"}, {"loadingTakes", 300}});
    say({{"type", "restart"}});
    letPass(std::chrono::milliseconds(100));
    tap(Selector{.text = {}, .id = "btnDropdown", .index = {}});
    letPass(std::chrono::milliseconds(600));
    waitUntil(hasLists);
    EXPECT_THAT(phone->recorder().text(), HasSubstr("- launchApp: {loadingTakes: 300}\n- wait: "));
    expectTheSameWhenPlayed();
}

TEST_F(FlowRecorderTest, WritesClosingAndOpeningFromABubble) {
    start();
    say({{"type", "set"}, {"presentation", "closed"}});
    say({{"type", "message"}, {"from", "A"}, {"text", "Play"}, {"link", "https://example.com/?a=b"}});
    for (const TouchablePart& part : touchableParts(phone->host(), phone->screen().conversation())) {
        if (part.label == "Play") {
            touch("began", part.frame.midX(), part.frame.midY());
            touch("ended", part.frame.midX(), part.frame.midY());
        }
    }
    letPass(std::chrono::milliseconds(600));
    waitUntil(hasLists);
    EXPECT_TRUE(phone->host().isOpen());
    expectTheSameWhenPlayed();
}

TEST_F(FlowRecorderTest, WritesStrokesPointByPoint) {
    start("canvas");
    say({{"type", "set"}, {"presentation", "expanded"}});
    stroke({{100, 300}, {140.5, 320}, {150, 420.25}, {260, 410}, {180, 350}});
    tap("White");
    stroke({{60, 600}, {64, 603}});
    stroke({{300, 600}, {200, 640}, {310.77, 700}});
    expectTheSameWhenPlayed();
}
