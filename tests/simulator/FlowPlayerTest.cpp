#include "simulator/flows/FlowPlayer.h"

#include "simulator/conversation/ExtensionBundle.h"
#include "simulator/flows/FlowReader.h"
#include "tests/support/Output.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class FlowPlayerTest : public testing::Test {
protected:
    ~FlowPlayerTest() override { static_cast<void>(support::takeStandardOutput()); }

    FlowResult play(const std::string& text, const std::string& file = "test.yaml") {
        openExtensionBundle(TD_BUNDLE, {});
        FlowProblems problems(file);
        const std::optional<Flow> flow = readFlow(text, problems);
        if (!flow) {
            ADD_FAILURE() << problems.findings().at(0).describe();
            return {};
        }
        return FlowPlayer(*flow, deviceNamed("15").value(), {}).play();
    }
    std::vector<std::string> failuresOf(const std::string& text) {
        std::vector<std::string> lines;
        for (const Finding& failure : play(text).failures) {
            lines.push_back(failure.describe());
        }
        return lines;
    }
};

TEST_F(FlowPlayerTest, GoesOnAfterAFailureAndNamesTheNearestText) {
    const FlowResult result = play("- launchApp\n"
                                   "- tapOn: Hold My Gase\n"
                                   "- tapOn: Hold My Gaze\n");
    ASSERT_EQ(result.failures.size(), 1u);
    EXPECT_EQ(result.failures[0].describe(), "test.yaml:2:3: error: tapOn: no 'Hold My Gase' on the screen; did you "
                                             "mean Hold My Gaze?");
    EXPECT_EQ(result.links.size(), 1u);
}

TEST_F(FlowPlayerTest, FailsWhatDoesNotHold) {
    EXPECT_THAT(failuresOf("- launchApp\n"
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
                ElementsAre(HasSubstr("no 'Knitting' on the screen"), HasSubstr("'Slow Burn' is visible"),
                            HasSubstr("times, not 5"), HasSubstr("no link was opened"),
                            HasSubstr("the debug lines are:"), HasSubstr("no text field has the keyboard"),
                            HasSubstr("no 'Nowhere at all' on the screen"),
                            HasSubstr("the link's icon is 'icon_eye', not 'icon_moon'"),
                            HasSubstr("the link has no item 'colour'")));
}

TEST_F(FlowPlayerTest, CannotActOnAnExtensionThatWasNotOpened) {
    EXPECT_THAT(failuresOf("- resign\n- tapOn: Friends\n"),
                ElementsAre(HasSubstr("has not been opened yet"), HasSubstr("has not been opened yet")));
}

TEST_F(FlowPlayerTest, RecordsATreeOnceAndThenComparesWithIt) {
    const support::TemporaryFolder folder;
    const std::string file = (folder.path() / "flow.yaml").string();
    const std::string flow = "- launchApp\n- wait: 600\n- assertTree: tree.txt\n";
    const FlowResult first = play(flow, file);
    ASSERT_EQ(first.failures.size(), 1u);
    EXPECT_THAT(first.failures[0].what, HasSubstr("has been recorded"));
    EXPECT_TRUE(play(flow, file).failures.empty());
    const FlowResult other = play("- launchApp\n- assertTree: tree.txt\n", file);
    ASSERT_EQ(other.failures.size(), 1u);
    EXPECT_THAT(other.failures[0].what, HasSubstr("line 1:"));
    const FlowResult folderAsTree = play("- launchApp\n- assertTree: .\n", file);
    ASSERT_EQ(folderAsTree.failures.size(), 1u);
    EXPECT_THAT(folderAsTree.failures[0].what, HasSubstr("it is a folder"));
}

} // namespace
