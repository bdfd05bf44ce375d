#include "platform/graphics/PNG.h"
#include "simulator/conversation/ExtensionBundle.h"
#include "simulator/flows/FlowPlayer.h"
#include "simulator/flows/FlowReader.h"
#include "tests/support/Output.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// Flows that take pictures, on a small device.
class PictureCommandsTest : public testing::Test {
protected:
    ~PictureCommandsTest() override { static_cast<void>(support::takeStandardOutput()); }

    Findings play(const std::string& text, bool updateGoldens = false) {
        openExtensionBundle(TD_BUNDLE, {});
        FlowProblems problems((folder.path() / "test.yaml").string());
        const std::optional<Flow> flow = readFlow(text, problems);
        return flow ? FlowPlayer(*flow, deviceNamed("320x568@1").value(), {}, {folder.path() / "out", updateGoldens})
                          .play()
                          .failures
                    : problems.findings();
    }
    [[nodiscard]] Bitmap pictureOf(const std::string& name) const {
        PNGReading reading = readPNG((folder.path() / "out" / (name + ".png")).string());
        return reading.bitmap ? *std::move(reading.bitmap) : Bitmap(0, 0);
    }

    support::TemporaryFolder folder;
};

TEST_F(PictureCommandsTest, WritesPicturesOfTheScreenAndOfTheExtensionAlone) {
    EXPECT_THAT(play("- launchApp\n"
                     "- takeScreenshot: deep/whole\n"
                     "- takeScreenshot: {path: bare.png, bare: true}\n"
                     "- setAppearance: dark\n"
                     "- takeScreenshot: dark\n"),
                IsEmpty());
    EXPECT_EQ(pictureOf("deep/whole").height(), 568);
    EXPECT_EQ(pictureOf("bare").height(), 300);
    EXPECT_FALSE(pictureOf("dark") == pictureOf("deep/whole"));
}

TEST_F(PictureCommandsTest, ComparesWithTheGoldenBesideTheFlow) {
    const std::string compact = "- launchApp\n- assertScreenshot: opened\n";
    const Findings recorded = play(compact);
    ASSERT_EQ(recorded.size(), 1u);
    EXPECT_THAT(recorded[0].what, HasSubstr((folder.path() / "opened.png").string()));
    EXPECT_THAT(play(compact), IsEmpty());
    const std::string expanded = "- launchApp\n- wait: 600\n- assertScreenshot: opened\n";
    EXPECT_EQ(play(expanded).size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "out" / "opened.diff.png"));
    EXPECT_THAT(play(expanded, true), IsEmpty());
    EXPECT_THAT(play(expanded), IsEmpty()) << "taken anew";
}

TEST_F(PictureCommandsTest, TakesAPictureBeforeTheFingerIsLifted) {
    EXPECT_THAT(play("- launchApp\n"
                     "- wait: 600\n"
                     "- swipe: {points: [\"50%,80%\", \"50%,40%\"], takeScreenshot: scrolled}\n"
                     "- takeScreenshot: after\n"),
                IsEmpty());
    EXPECT_EQ(pictureOf("scrolled"), pictureOf("after"));
    EXPECT_GT(pictureOf("scrolled").height(), 0);
}

TEST_F(PictureCommandsTest, RefusesNamesOutsideTheFolderOrWithoutAStemAndWordsItDoesNotKnow) {
    for (const char* command :
         {"takeScreenshot: ../up", "takeScreenshot: /tmp/up", "takeScreenshot: ..png", "takeScreenshot: .png",
          "takeScreenshot: a/", "takeScreenshot: ...png", "takeScreenshot: \"\"", "assertScreenshot: {path: a/..}",
          "takeScreenshot: {bare: true}", "assertScreenshot: {path: a, bare: maybe}", "setAppearance: blue"}) {
        EXPECT_EQ(play("- " + std::string(command) + "\n").size(), 1u) << command;
    }
}

} // namespace
