#include "simulator/check/ScreenCheck.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/NSBundle.h"
#include "simulator/check/BundleCheck.h"
#include "simulator/check/Contrast.h"
#include "simulator/check/FlowCheck.h"
#include "simulator/conversation/BundleSetup.h"
#include "tests/support/Output.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::AllOf;
using testing::HasSubstr;

/// The bundle that the build assembled, with something in it written otherwise.
class ScreenCheckTest : public testing::Test {
protected:
    ScreenCheckTest() {
        std::filesystem::copy(TD_BUNDLE, folder.path(), std::filesystem::copy_options::recursive);
        openExtensionBundle(folder.path());
    }
    ~ScreenCheckTest() override { static_cast<void>(support::takeStandardOutput()); }

    void edit(const std::string& name, const std::string& from, const std::string& to) {
        std::string text = readWholeFile(folder.path() / name).value();
        ASSERT_NE(text.find(from), std::string::npos) << from;
        folder.write(name, text.replace(text.find(from), from.size(), to));
        openExtensionBundle(folder.path());
    }
    static std::string told(const Findings& findings) {
        std::string text;
        for (const Finding& finding : findings) {
            text += finding.describe() + "\n";
        }
        return text;
    }
    static std::string onScreen(const char* device, ScreenExtent extent = ScreenExtent::opening) {
        const std::vector<ScreenFinding> found = checkScreen(deviceNamed(device).value(), extent);
        return told(joinScreenFindings(readScreenFindings(screenFindingsText(found)), 1));
    }

    support::TemporaryFolder folder;
};

TEST_F(ScreenCheckTest, MeasuresWhatIsOnTheScreen) {
    const char* storyboard = "MainInterface.storyboard";
    const struct {
        const char* file;
        const char* from;
        const char* to;
        const char* rule;
        const char* what;
    } faults[] = {
        {storyboard, R"(<constraint firstAttribute="height" constant="52" id="ih6-WX-pxU"/>)",
         R"(<constraint firstAttribute="height" constant="30" id="ih6-WX-pxU"/>)", "[a11y.target]", "x 30"},
        {storyboard, R"(identifier="btnDropdown" label="Player group")", R"(identifier="btnDropdown")", "[a11y.label]",
         "neither a text nor a label"},
        {storyboard, R"(text="Truths &amp; Dares")", R"(text="Truths &amp; Dares for everybody who is here today")",
         "[layout.text-cut]", "points ("},
        {"ModeTblCell.xib", R"(<constraint firstAttribute="height" constant="44" id="o9p-2K-h6B"/>)",
         R"(<constraint firstAttribute="height" constant="44" id="o9p-2K-h6B"/>
            <constraint firstAttribute="height" constant="45" id="new-01-hei"/>)",
         "[layout.conflict]", "o9p-2K-h6B (ModeTblCell.xib:"},
        {storyboard, R"(<constraint firstItem="aKN-wO-dVU" firstAttribute="centerY")",
         R"(<constraint placeholder="YES" firstItem="aKN-wO-dVU" firstAttribute="centerY")", "[layout.ambiguous]",
         "<imageView id=\"aKN-wO-dVU\"> has no definite y (on se)"},
        {storyboard, R"(<label opaque="NO")",
         R"(<view id="new-01-box"><rect key="frame" x="0" y="0" width="99" height="9"/><subviews><button id="new-01-btn">
            <rect key="frame" x="0" y="0" width="99" height="60"/><state key="normal" title="Go"/></button></subviews></view>
            <label opaque="NO")",
         "[a11y.target]", "what stands in its superviews is 99 x 9"},
        {storyboard, R"(<label opaque="NO")",
         R"(<textField text="Name" id="new-01-fld"><rect key="frame" x="9" y="9" width="99" height="50"/></textField>
            <label opaque="NO")",
         "[a11y.unmeasured]", "a text field paints its text itself"},
        {"ModeTblCell.xib", "</subviews>",
         R"(<view id="new-01-cov"><rect key="frame" x="0" y="0" width="400" height="20"/>
            <color key="backgroundColor" white="0.5"/></view></subviews>)",
         "[a11y.unmeasured]", "the text is always covered in part"},
    };
    const std::string sound = onScreen("se", ScreenExtent::everything);
    EXPECT_THAT(sound, HasSubstr("#FFFFFF on #4DA289 has a contrast of 3.07:1, and needs 4.50:1"));
    for (const auto& [file, from, to, rule, what] : faults) {
        edit(file, from, to);
        const bool isToldAtLast = rule == std::string("[a11y.unmeasured]");
        EXPECT_THAT(onScreen("se", isToldAtLast ? ScreenExtent::everything : ScreenExtent::opening),
                    AllOf(HasSubstr(std::string(file) + ":"), HasSubstr(rule), HasSubstr(what)));
        EXPECT_THAT(sound, testing::Not(HasSubstr(rule))) << sound;
        edit(file, to, from);
    }
    edit("Ice Breaker.json", "\"sectionTitle\": \"",
         "\"sectionTitle\": \"A heading that goes on for longer than any phone of this size is wide enough for ");
    EXPECT_THAT(
        onScreen("se", ScreenExtent::everything),
        HasSubstr(
            "the text is cut off: \"A heading that goes on for longer than any phone of this size is wide enough for"));
}

TEST_F(ScreenCheckTest, SaysOnceWhatHoldsForSeveralDevices) {
    const auto finding = [](const char* device, double amount) {
        return ScreenFinding{"layout.outside",
                             "A.xib",
                             TextPlace{3, 1},
                             "it stands out",
                             "by " + std::to_string(static_cast<int>(amount)),
                             amount,
                             device};
    };
    EXPECT_EQ(told(joinScreenFindings({finding("se", 4), finding("se", 9), finding("8", 2)}, 3)),
              "A.xib:3:1: warning: it stands out: by 9 (on se and 1 other) [layout.outside]\n");
    std::vector<ScreenFinding> open;
    for (int line = 3; line < 8; ++line) {
        open.push_back({"layout.ambiguous", "A.xib", TextPlace{line, 1},
                        "<view id=\"" + std::to_string(line) + "\"> has no definite x", "", 0, "se"});
    }
    EXPECT_EQ(told(joinScreenFindings(open, 1)),
              "A.xib:3:1: warning: <view id=\"3\"> has no definite x (on se) (and 4 times "
              "more: lines 4, 5, 6 …) [layout.ambiguous]\n");
    EXPECT_THAT(told(joinScreenFindings({finding("se", 4), finding("8", 2)}, 2)),
                HasSubstr("(on every device, worst on se)"));
}

TEST_F(ScreenCheckTest, MissesNoNibThatTheCodeAsksForNorATitleWithoutRoom) {
    std::filesystem::remove(folder.path() / "ModeHeaderView.xib");
    edit("MainInterface.storyboard", "storyboardIdentifier=\"CategoriesVC\"", "storyboardIdentifier=\"Categories\"");
    std::filesystem::remove(folder.path() / "Couple.json");
    const std::string found = told(checkMainBundle().value().all);
    EXPECT_THAT(
        found,
        AllOf(HasSubstr("CategoriesVC asks for the nib \"ModeHeaderView\", which is not there"),
              HasSubstr("MessagesViewController asks for a scene that is not there"),
              HasSubstr("/Couple.json: warning: there is no content file \"Couple.json\" [content.file-missing]")));
    std::filesystem::create_directory(folder.path() / "content");
    EXPECT_THAT(told(checkMainBundle().value().all), HasSubstr("/content/Couple.json: warning"));
}

TEST_F(ScreenCheckTest, FindsTitlesWithoutRoomAndCharactersWithoutAFont) {
    edit("Family.json", "\"sectionTitle\": \"\"",
         "\"sectionTitle\": \"A heading that goes on for much longer than any phone of this size is wide enough for\"");
    edit("Couple.json", "\"title\": \"", "\"title\": \"\\uDBFF\\uDFFD");
    const std::string found = told(checkMainBundle().value().all);
    EXPECT_THAT(found,
                AllOf(HasSubstr("Family.json:3:21: warning: section 1: the section title is cut off on the device se"),
                      HasSubstr("(U+10FFFD) [content.characters]")));
}

TEST_F(ScreenCheckTest, FindsWhatAFlowReplacesInVain) {
    EXPECT_EQ(told(checkFlowText("withoutResource: [Freinds.json]\n---\n- launchApp\n", "a.yaml")),
              "a.yaml:1:19: warning: the bundle has no resource 'Freinds.json'; did you mean \"Friends.json\"? "
              "[flow.resource]\n");
    EXPECT_THAT(told(checkFlowText("- lauchApp\n", "a.yaml")), HasSubstr("[flow.unreadable]"));
    EXPECT_EQ(told(checkFlowText("withoutResource: ModeTblCell.xib\n---\n- launchApp\n", "a.yaml")), "");
}

TEST(Contrast, IsThatOfTheGuidelines) {
    const RGBA white{1, 1, 1, 1};
    EXPECT_DOUBLE_EQ(contrastRatio(white, {0, 0, 0, 1}), 21);
    EXPECT_NEAR(contrastRatio(white, {77 / 255.0, 162 / 255.0, 137 / 255.0, 1}), 3.07, 0.005);
    Bitmap ground(2, 1);
    ground.row(0)[0] = 0xFFFFFFFF;
    ground.row(0)[1] = 0xFF000000;
    const ContrastRange range = contrastOver(ground, CGRectMake(0, 0, 2, 1), white);
    EXPECT_FALSE(range.isOneGround);
    EXPECT_EQ(range.colors, "#FFFFFF on #FFFFFF");
    EXPECT_DOUBLE_EQ(range.most, 21);
}

} // namespace
