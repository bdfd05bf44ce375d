#include "platform/graphics/PNG.h"
#include "tests/simulator/SimulatorFixtures.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Flows that take pictures, on a small device.
class PictureCommandsTest : public FlowTest {
protected:
    PictureCommandsTest() { device = "320x568@1"; }

    [[nodiscard]] Bitmap pictureOf(const std::string& name) const {
        return readPNG((folder.path() / "out" / (name + ".png")).string()).value();
    }
};

TEST_F(PictureCommandsTest, WritesPicturesOfTheScreenOfTheExtensionAloneAndBeforeTheFingerIsLifted) {
    EXPECT_THAT(failuresOf("- launchApp\n"
                           "- takeScreenshot: deep/whole\n"
                           "- takeScreenshot: {path: bare.png, bare: true}\n"
                           "- setAppearance: dark\n"
                           "- takeScreenshot: dark\n"
                           "- wait: 600\n"
                           "- swipe: {points: [\"50%,80%\", \"50%,40%\"], takeScreenshot: scrolled}\n"
                           "- takeScreenshot: after\n"),
                IsEmpty());
    EXPECT_EQ(pictureOf("deep/whole").height(), 568);
    EXPECT_EQ(pictureOf("bare").height(), 300);
    EXPECT_FALSE(pictureOf("dark") == pictureOf("deep/whole"));
    EXPECT_EQ(pictureOf("scrolled"), pictureOf("after"));
    EXPECT_EQ(pictureOf("scrolled").height(), 568);
}

TEST_F(PictureCommandsTest, ComparesWithTheGoldenBesideTheFlow) {
    const std::string compact = "- launchApp\n- assertScreenshot: opened\n";
    EXPECT_THAT(failuresOf(compact), ElementsAre(HasSubstr((folder.path() / "opened-320x568@1.png").string())));
    EXPECT_THAT(failuresOf(compact), IsEmpty());
    const std::string expanded = "- launchApp\n- wait: 600\n- assertScreenshot: opened\n";
    EXPECT_EQ(failuresOf(expanded).size(), 1u);
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "out" / "opened.diff.png"));
    pictures.goldens = Goldens::renew;
    EXPECT_THAT(failuresOf(expanded), IsEmpty());
    pictures.goldens = Goldens::compare;
    EXPECT_THAT(failuresOf(expanded), IsEmpty()) << "taken anew";
}

TEST_F(PictureCommandsTest, RefusesNamesOutsideTheFolderOrWithoutAStemAndWordsItDoesNotKnow) {
    for (const char* command :
         {"takeScreenshot: ../up", "takeScreenshot: /tmp/up", "takeScreenshot: ..png", "takeScreenshot: .png",
          "takeScreenshot: a/", "takeScreenshot: ...png", "takeScreenshot: \"\"", "assertScreenshot: {path: a/..}",
          "takeScreenshot: {bare: true}", "assertScreenshot: {path: a, bare: maybe}", "setAppearance: blue"}) {
        EXPECT_EQ(failuresOf("- " + std::string(command) + "\n").size(), 1u) << command;
    }
}

} // namespace
