#include "platform/foundation/FileReading.h"
#include "tests/simulator/SimulatorFixtures.h"

#include <cstring>

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FlowPlayerTest : public FlowTest {
protected:
    /// What is told of the layout while the screen is shown in both styles.
    std::vector<std::string> layoutEvents() {
        std::vector<std::string> texts;
        for (const Event& event : play("- launchApp\n- wait: 600\n- setStyle: compact\n").events) {
            if (event.kind == "layout") {
                texts.push_back(event.text);
            }
        }
        return texts;
    }
};

TEST_F(FlowPlayerTest, GoesOnAfterAFailureAndNamesTheNearestText) {
    const FlowResult result = play("- launchApp\n"
                                   "- tapOn: Hold My Gase\n"
                                   "- tapOn: Hold My Gaze\n");
    ASSERT_EQ(result.failures.size(), 1u);
    EXPECT_EQ(result.failures[0].describe(), (folder.path() / "test.yaml").string() +
                                                 ":2:3: error: tapOn: no 'Hold My Gase' on the screen; did you mean "
                                                 "Hold My Gaze?");
    EXPECT_EQ(result.links.size(), 1u);
}

TEST_F(FlowPlayerTest, FailsWhatDoesNotHold) {
    EXPECT_THAT(failuresOf("- resign\n"
                           "- tapOn: Friends\n"
                           "- launchApp\n"
                           "- wait: 100\n"
                           "- assertVisible: Knitting\n"
                           "- assertNotVisible: Slow Burn\n"
                           "- assertStyleRequests: 5\n"
                           "- assertLink: \"https://example.com\"\n"
                           "- assertDebug: [didReceive]\n"
                           "- inputText: abc\n"
                           "- scrollUntilVisible: Nowhere at all\n"
                           "- openBubble: {from: A}\n"
                           "- assertDebug: [willBecomeActive]\n"
                           "- tapOn: Hold My Gaze\n"
                           "- tapOn: Hold My Gaze\n"
                           "- assertLink: {icon: icon_moon}\n"
                           "- assertLink: {colour: red}\n"),
                ElementsAre(HasSubstr("resign: the extension has not been opened yet"),
                            HasSubstr("tapOn: the extension has not been opened yet"),
                            HasSubstr("no 'Knitting' on the screen"), HasSubstr("'Slow Burn' is visible"),
                            HasSubstr("times, not 5"), HasSubstr("no link was opened"),
                            HasSubstr("the debug lines are:"), HasSubstr("no text field has the keyboard"),
                            HasSubstr("no 'Nowhere at all' on the screen"),
                            HasSubstr("the link's icon is 'icon_eye', not 'icon_moon'"),
                            HasSubstr("the link has no item 'colour'")));
}

TEST_F(FlowPlayerTest, ClosesTheExtensionAndShowsWhatArrivesMeanwhile) {
    EXPECT_THAT(failuresOf("- launchApp\n"
                           "- receiveMessage: {from: A, text: Hi}\n"
                           "- assertDebug: [willBecomeActive, didReceive]\n"
                           "- close\n"
                           "- tapOn: Friends\n"
                           "- receiveMessage: {from: A, text: Still there}\n"
                           "- resign\n"),
                ElementsAre(HasSubstr("tapOn: the extension has not been opened yet"),
                            HasSubstr("resign: the extension has not been opened yet")));
}

TEST_F(FlowPlayerTest, RecordsATreeOnceAndThenComparesWithIt) {
    const std::string flow = "- launchApp\n- wait: 600\n- assertTree: tree.txt\n";
    EXPECT_THAT(failuresOf(flow), ElementsAre(HasSubstr("has been recorded")));
    EXPECT_THAT(failuresOf(flow), IsEmpty());
    EXPECT_THAT(failuresOf("- launchApp\n- assertTree: tree.txt\n- assertTree: .\n"),
                ElementsAre(HasSubstr("line 1:"), HasSubstr("it is a folder")));
}

TEST_F(FlowPlayerTest, TellsOfConstraintsThatContradictEachOtherAndOfNoOthers) {
    EXPECT_THAT(layoutEvents(), IsEmpty());
    bundle = folder.path() / "bundle";
    std::filesystem::copy(TD_BUNDLE, bundle, std::filesystem::copy_options::recursive);
    std::string nib = readWholeFile(bundle / "ModeTblCell.xib").value();
    const std::string two = "<constraints><constraint firstAttribute=\"width\" constant=\"10\" id=\"con-01-ten\"/>"
                            "<constraint firstAttribute=\"width\" constant=\"20\" id=\"con-02-20p\"/>";
    folder.write("bundle/ModeTblCell.xib", nib.replace(nib.find("<constraints>"), std::strlen("<constraints>"), two));
    EXPECT_THAT(layoutEvents(), Contains(AllOf(HasSubstr("con-01-ten (ModeTblCell.xib:"), HasSubstr("con-02-20p"))));
}

} // namespace
