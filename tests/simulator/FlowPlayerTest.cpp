#include "platform/foundation/FileReading.h"
#include "tests/simulator/SimulatorFixtures.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FlowPlayerTest : public FlowTest {
protected:
    /// An interface document of the bundle as it stands.
    [[nodiscard]] std::string document(const std::string& name) const { return readWholeFile(bundle / name).value(); }
    /// Plays on a copy of the bundle with something added to one of its documents.
    void changeDocument(const std::string& name, std::size_t at, const std::string& addition) {
        std::string text = document(name);
        bundle = folder.path() / "bundle";
        std::filesystem::copy(TD_BUNDLE, bundle, std::filesystem::copy_options::recursive);
        ASSERT_LT(at, text.size());
        folder.write("bundle/" + name, text.insert(at, addition));
    }
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
                ElementsAre(HasSubstr("resign: the extension is not open"),
                            HasSubstr("tapOn: the extension is not open"), HasSubstr("no 'Knitting' on the screen"),
                            HasSubstr("'Slow Burn' is visible"), HasSubstr("times, not 5"),
                            HasSubstr("no link was opened"), HasSubstr("the debug lines are:"),
                            HasSubstr("no text field has the keyboard"), HasSubstr("this is the end of the list"),
                            HasSubstr("the link's icon is 'icon_eye', not 'icon_moon'"),
                            HasSubstr("the link has no item 'colour'; its items are:\n      mainCategory\n")));
}

TEST_F(FlowPlayerTest, ClosesTheExtensionAndShowsWhatArrivesMeanwhile) {
    EXPECT_THAT(
        failuresOf("- launchApp\n"
                   "- receiveMessage: {from: A, text: Hi}\n"
                   "- assertDebug: [willBecomeActive, didReceive]\n"
                   "- close\n"
                   "- tapOn: Friends\n"
                   "- receiveMessage: {from: A, text: Still there}\n"
                   "- resign\n"),
        ElementsAre(HasSubstr("tapOn: the extension is not open"), HasSubstr("resign: the extension is not open")));
}

TEST_F(FlowPlayerTest, RepeatsRunsOtherFlowsWaitsAndForgivesWhatIsOptional) {
    folder.write("steps/choose.yaml", "- tapOn: {id: btnDropdown}\n- tapOn: ${GROUP}\n");
    EXPECT_THAT(failuresOf("- launchApp: {loadingTakes: 9000}\n"
                           "- extendedWaitUntil: {visible: Slow Burn, timeout: 10000}\n"
                           "- runFlow: {file: steps/choose.yaml, env: {GROUP: Friends}}\n"
                           "- assertVisible: Warm-Up Round\n"
                           "- repeat: {while: {notVisible: Karaoke Hostage}, commands: [scroll]}\n"
                           "- tapOn: {text: .*, below: Chaos Hour, index: 0}\n"
                           "- assertLink: {sectionCategory: Chaos Hour}\n"
                           "- tapOn: {text: Knitting, optional: true}\n"
                           "- runFlow: {when: {visible: Slow Burn}, commands: [jump: 1]}\n"),
                ElementsAre(HasSubstr("unknown command 'jump'")));
    EXPECT_THAT(failuresOf("- launchApp\n"
                           "- wait: 600\n"
                           "- runFlow: {when: {visible: Chaos Hour}, commands: [tapOn: Knitting]}\n"
                           "- repeat: {times: 5, commands: [tapOn: {text: Knitting, label: The needles}]}\n"
                           "- extendedWaitUntil: {notVisible: Slow Burn, timeout: 100}\n"
                           "- repeat: {times: 3000, commands: [wait: 0]}\n"
                           "- launchApp\n"),
                ElementsAre(HasSubstr("The needles: no 'Knitting'"), HasSubstr("'Slow Burn' is visible and should not"),
                            HasSubstr("the flow has played 2000 commands")));
}

TEST_F(FlowPlayerTest, TypesAndErasesInTheFieldThatHasTheKeyboard) {
    const std::size_t end = document("MainInterface.storyboard").rfind("</subviews>");
    changeDocument("MainInterface.storyboard", end,
                   "<textField id=\"fld-01-abc\" translatesAutoresizingMaskIntoConstraints=\"YES\">"
                   "<rect key=\"frame\" x=\"10\" y=\"10\" width=\"200\" height=\"40\"/>"
                   "<accessibility key=\"accessibilityConfiguration\" identifier=\"field\"/></textField>");
    EXPECT_THAT(failuresOf("- launchApp\n- wait: 600\n"
                           "- eraseText\n"
                           "- tapOn: {id: field}\n"
                           "- inputText: Grüße\n"
                           "- assertVisible: {id: field, text: Grüße}\n"
                           "- eraseText: 3\n"
                           "- assertVisible: {id: field, text: Gr}\n"
                           "- eraseText\n"
                           "- assertNotVisible: Gr\n"
                           "- hideKeyboard\n"
                           "- inputText: x\n"),
                ElementsAre(HasSubstr("eraseText: no text field has the keyboard"),
                            HasSubstr("inputText: no text field has the keyboard")));
}

TEST_F(FlowPlayerTest, RecordsATreeOnceComparesWithItRenewsItAndRecordsNothingInCI) {
    const std::string flow = "- launchApp\n- wait: 600\n- assertTree: tree.txt\n";
    pictures.goldens = Goldens::onlyRead;
    EXPECT_THAT(failuresOf(flow), ElementsAre(HasSubstr("none is recorded")));
    pictures.goldens = Goldens::compare;
    EXPECT_THAT(failuresOf(flow), ElementsAre(HasSubstr("tree-15.txt: it has been recorded")));
    EXPECT_THAT(failuresOf(flow), IsEmpty());
    const std::string early = "- launchApp\n- assertTree: tree.txt\n";
    EXPECT_THAT(failuresOf(early), ElementsAre(HasSubstr("line 1:")));
    pictures.goldens = Goldens::renew;
    EXPECT_THAT(failuresOf(early), IsEmpty());
    pictures.goldens = Goldens::compare;
    EXPECT_THAT(failuresOf(early), IsEmpty());
}

TEST_F(FlowPlayerTest, SaysWhatIsThereInsteadAndLeavesAPictureAndTheTree) {
    device = "320x568@1";
    pictures.showsFailures = true;
    EXPECT_THAT(failuresOf("- launchApp\n"
                           "- wait: 600\n"
                           "- tapOn: btnDropdown\n"
                           "- tapOn: {id: Slow Burn}\n"
                           "- assertVisible: {id: lblDropDown, text: Friends}\n"
                           "- tapOn: {text: Slow Burn, index: 3}\n"
                           "- tapOn: {text: Slow Burn, enabled: false}\n"
                           "- tapOn: {text: Slow Burn, above: Truths & Dares}\n"
                           "- tapOn: Freinds\n"
                           "- tapOn: {point: \"500%,20%\"}\n"
                           "- tapOn: {text: x, below: Slow Brun}\n"
                           "- tapOn: Something quite different\n"),
                ElementsAre(HasSubstr("it is an id, and no text: {id: btnDropdown}"),
                            HasSubstr("it is a text, and no id"), HasSubstr(": id 'lblDropDown' says 'Adult (18+)'"),
                            HasSubstr("number 3 on the screen: the last is number 0"),
                            HasSubstr("disabled on the screen: it is enabled"),
                            HasSubstr("above 'Truths & Dares' on the screen: it stands elsewhere"),
                            HasSubstr("did you mean Friends? It cannot be seen"),
                            HasSubstr("the point 1600, 98 lies outside of the extension, which is 320 x 492 points"),
                            HasSubstr("did you mean Slow Burn?"), HasSubstr("; the texts are '")));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "out/test-line-3.failed.png"));
    EXPECT_THAT(readWholeFile(folder.path() / "out/test-line-12.failed.txt").value(), HasSubstr("#lblDropDown"));
}

TEST_F(FlowPlayerTest, TellsOfConstraintsThatContradictEachOtherAndOfNoOthers) {
    EXPECT_THAT(layoutEvents(), IsEmpty());
    const std::string mark = "<constraints>";
    changeDocument("ModeTblCell.xib", document("ModeTblCell.xib").find(mark) + mark.size(),
                   "<constraint firstAttribute=\"width\" constant=\"10\" id=\"con-01-ten\"/>"
                   "<constraint firstAttribute=\"width\" constant=\"20\" id=\"con-02-20p\"/>");
    EXPECT_THAT(layoutEvents(), Contains(AllOf(HasSubstr("con-01-ten (ModeTblCell.xib:"), HasSubstr("con-02-20p"))));
}

} // namespace
