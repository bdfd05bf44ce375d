#include "simulator/parlor/PreparedBundle.h"

#include "platform/foundation/FileReading.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::IsEmpty;

class PreparedBundleTest : public testing::Test {
protected:
    PreparedBundleTest() {
        std::filesystem::copy(TD_BUNDLE, folder.path(), std::filesystem::copy_options::recursive);
        options.bundle = folder.path();
    }

    void edit(const std::string& name, const std::string& from, const std::string& to) {
        std::string text = readWholeFile(folder.path() / name).value();
        ASSERT_NE(text.find(from), std::string::npos) << from;
        folder.write(name, text.replace(text.find(from), from.size(), to));
    }
    /// Prepares the bundle and gives what is wrong with it, a finding a line, or the reason why it is refused.
    std::string complaint() {
        bundle = prepareBundle(options);
        std::string lines = bundle ? "" : bundle.failure().what;
        for (const Finding& finding : bundle ? bundle.value().findings.all : Findings()) {
            lines += finding.describe() + "\n";
        }
        return lines;
    }
    [[nodiscard]] bool canLaunch() const { return bundle && bundle.value().findings.canLaunch; }

    support::TemporaryFolder folder;
    BundleOptions options;
    Result<PreparedBundle> bundle = Failure{"not prepared"};
};

TEST_F(PreparedBundleTest, TellsWhatIsWrongAndWhetherTheExtensionCanBeOpenedAllTheSame) {
    EXPECT_THAT(complaint(), IsEmpty());
    EXPECT_TRUE(canLaunch());
    const struct {
        const char* file;
        const char* from;
        const char* to;
        const char* finding;
        bool canLaunch;
    } cases[] = {
        {"MainInterface.storyboard", "property=\"lblDropDown\"", "property=\"lblDropDwn\"",
         ":[0-9]+:[0-9]+: error: .*did you mean lblDropDown\\?", false},
        {"MainInterface.storyboard", "initialViewController=\"", "initialViewController=\"no",
         ":2:1: error: <document>: the storyboard has no initial controller", false},
        {"ModeTblCell.xib", "image=\"list_arrow\"", "image=\"list_arow\"", ":[0-9]+:[0-9]+: warning: .*list_arow",
         true},
        {"Friends.json", "\"icon_bolt\"", "\"icon_blot\"",
         ":6:17: warning: .*no icon \"icon_blot\"; did you mean \"icon_bolt\"\\?", true},
        {"Couple.json", "\"items\": [", "\"items\": 3, \"item\": [", ":[0-9]+:[0-9]+: error: .*\"items\" must be",
         true},
    };
    for (const auto& [file, from, to, finding, canBeOpened] : cases) {
        edit(file, from, to);
        EXPECT_THAT(complaint(), ContainsRegex(std::string(file) + finding));
        EXPECT_EQ(canLaunch(), canBeOpened) << finding;
        edit(file, to, from);
    }
}

TEST_F(PreparedBundleTest, OpensAnExtensionWithBrokenPicturesAndTellsOfEachSetOnce) {
    const std::filesystem::path set = folder.path() / "Assets.xcassets" / "list_arrow.imageset";
    for (const auto& file : std::filesystem::directory_iterator(set)) {
        if (file.path().extension() == ".png") {
            folder.write(std::filesystem::relative(file.path(), folder.path()).string(), "no picture");
        }
    }
    const std::string warnings = complaint();
    EXPECT_THAT(warnings, ContainsRegex("list_arrow.imageset/Contents.json:[0-9]+:[0-9]+: warning: .*cannot be drawn"));
    EXPECT_EQ(std::count(warnings.begin(), warnings.end(), '\n'), 1);
    EXPECT_TRUE(canLaunch());
}

TEST_F(PreparedBundleTest, ShowsAContentFileForTheGroupItIsNamedAfterOrElseTheFirst) {
    const support::TemporaryFolder lists;
    for (const auto& [file, shown] : {std::pair("MyList", "Adult (18+)"), std::pair("Family", "Family"),
                                      std::pair("Dating", "Adult (18+)")}) { // nobody could choose Dating on screen
        options.content = lists.write(std::string(file) + ".json", "[]").string();
        EXPECT_THAT(complaint(), IsEmpty());
        ASSERT_TRUE(bundle);
        EXPECT_EQ(bundle.value().overrides.at(0).name, std::string(shown) + ".json");
    }
}

TEST_F(PreparedBundleTest, TellsOfAContentFileThatCannotBeReadAndRefusesOneThatIsAskedFor) {
    std::filesystem::remove(folder.path() / "Couple.json");
    std::filesystem::create_directory(folder.path() / "Couple.json");
    EXPECT_THAT(complaint(), ContainsRegex("Couple.json: error: .*it is a folder"));
    EXPECT_TRUE(canLaunch());
    options.content = (folder.path() / "Couple.json").string();
    EXPECT_THAT(complaint(), HasSubstr("it is a folder"));
    EXPECT_FALSE(bundle);
}

TEST_F(PreparedBundleTest, RefusesABundleWhoseMainStoryboardIsNotThere) {
    edit("Info.plist", "<string>MainInterface</string>", "<string>Interface</string>");
    EXPECT_THAT(complaint(), HasSubstr("NSExtensionMainStoryboard"));
    EXPECT_FALSE(bundle);
}

} // namespace
