#include "game/CategoriesVC.h"
#include "simulator/live/LiveSession.h"
#include "simulator/live/TouchableParts.h"
#include "simulator/parlor/PreparedBundle.h"
#include "simulator/pictures/ScreenPicture.h"
#include "tests/simulator/SimulatorFixtures.h"

#include <boost/json.hpp>

#include <random>

namespace {

using testing::AllOf;
using testing::HasSubstr;
using namespace std::chrono_literals;

/// A page that touches a phone through messages, as the server hands them on; time passes as the test wants it.
class FlowRecorderTest : public FlowTest {
protected:
    void start(const std::string& scene = "", const Device& shown = deviceNamed("15").value()) {
        openBundle(scene);
        phone.emplace(LiveShow{"test", scene, shown, {"A", "B"}, {}, [this, scene] {
                                   openBundle(scene);
                                   return Result<BundleFindings>(BundleFindings{});
                               }});
        session.emplace(*phone, LiveSession::Out{[](auto, const auto&) {}, [](auto, const auto&) {},
                                                 [](auto, const std::string& why) { ADD_FAILURE() << why; }});
        session->came(1);
        letPass(600ms);
    }
    void openBundle(const std::string& scene) {
        openExtensionBundle(scene.empty() ? bundle : bundle.parent_path() / "Canvas.appex");
    }
    /// As the program does.
    void letPass(std::chrono::milliseconds time) {
        phone->passTime(time);
        session->update();
    }
    void say(boost::json::object message) {
        session->said(1, boost::json::serialize(message));
        session->update();
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

    /// Anything that hands can do.
    void doAnything(std::mt19937& random) {
        const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
        const CGSize size = phone->show().device.size;
        const auto place = [&] { return CGPoint{upTo(100) / 100.0 * size.width, upTo(100) / 100.0 * size.height}; };
        const auto touchPart = [&] {
            const auto parts = touchableParts(phone->host(), phone->screen().conversation());
            const CGRect frame = parts.at(static_cast<std::size_t>(upTo(static_cast<int>(parts.size()) - 1))).frame;
            say({{"type", "tap"}, {"x", frame.midX()}, {"y", frame.midY()}});
        };
        const auto send = [&](const char* link) {
            say({{"type", "message"}, {"from", upTo(1) == 0 ? "A" : "B"}, {"text", "Hi"}, {"link", link}});
        };
        const std::array<std::function<void()>, 10> deeds{
            touchPart,
            touchPart,
            [&] {
                stroke({place(), place(), place()});
            },
            [&] {
                const CGPoint middle{size.width / 2, size.height * 0.8};
                stroke({middle, {middle.x, middle.y - 40}, {middle.x + 3, middle.y - upTo(300)}});
            },
            [&] {
                say({{"type", "wheel"}, {"x", 150}, {"y", size.height - 120}, {"dy", upTo(160) - 60}});
            },
            [&] {
                const char* const names[] = {"closed", "compact", "expanded", "expanded"};
                say({{"type", "set"}, {"presentation", names[upTo(3)]}});
            },
            [&] {
                say({{"type", "set"}, {"appearance", upTo(1) == 0 ? "dark" : "light"}});
            },
            [&] {
                say({{"type", "set"}, {"loadingTakes", 150 * upTo(2)}});
            },
            [&] { send(""); },
            [&] { send("https://example.com/?a=b"); },
        };
        deeds.at(static_cast<std::size_t>(upTo(9)))();
        letPass(std::chrono::milliseconds(upTo(3) == 0 ? upTo(900) : upTo(120)));
    }

    /// Ends the phone, plays its recording and compares what both show in the end.
    void expectTheSameWhenPlayed() {
        const std::string text = phone->recorder().text();
        const Bitmap shown = takePicture(phone->host(), PictureExtent::screen);
        const std::size_t links = phone->host().links().size();
        session.reset();
        phone.reset();
        SCOPED_TRACE(text);
        Findings problems;
        const std::optional<Flow> flow = readFlow(text, "recorded.yaml", problems);
        ASSERT_TRUE(flow) << problems.front().describe();
        openBundle(flow->scene);
        FlowPlayer player(*flow, PreparedBundle().deviceFor(*flow));
        const FlowResult result = player.play();
        EXPECT_TRUE(result.failures.empty()) << result.failures.front().describe();
        EXPECT_EQ(player.host().links().size(), links);
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
    letPass(100ms);
    tap(Selector{.text = {}, .id = "btnDropdown", .index = {}});
    letPass(600ms);
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
    letPass(600ms);
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

TEST_F(FlowRecorderTest, KeepsTextSizeAndDirectionOnAnotherDevice) {
    Device shown = deviceNamed("15").value();
    shown.textSize = UIContentSizeCategory::accessibilityMedium;
    shown.direction = UIUserInterfaceLayoutDirection::rightToLeft;
    start("", shown);
    say({{"type", "set"}, {"device", "se"}});
    EXPECT_THAT(phone->recorder().text(), AllOf(HasSubstr("device: \"se\"\n"), HasSubstr("direction: rightToLeft\n"),
                                                HasSubstr("- setTextSize: accessibility1\n")));
    expectTheSameWhenPlayed();
}

TEST_F(FlowRecorderTest, WhateverIsDoneAtWhateverTimePlaysToTheSamePictureAndLinks) {
    for (const unsigned seed : {12u, 16u, 23u, 27u}) { // which find waits and swipes of a wrong length
        SCOPED_TRACE(seed);
        std::mt19937 random(seed); // NOLINT: the same road every time
        Device shown = deviceNamed(std::array{"15", "se"}.at(seed % 2)).value();
        shown.textSize = seed % 3 == 0 ? UIContentSizeCategory::accessibilityMedium : UIContentSizeCategory::large;
        shown.direction =
            seed % 4 < 2 ? UIUserInterfaceLayoutDirection::leftToRight : UIUserInterfaceLayoutDirection::rightToLeft;
        start("", shown);
        for (int deed = 0; deed < 25; ++deed) {
            doAnything(random);
        }
        say({{"type", "set"}, {"presentation", "compact"}}); // in the middle of it
        letPass(900ms);
        expectTheSameWhenPlayed();
    }
}
