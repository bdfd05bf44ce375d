#include "simulator/flows/FlowReader.h"

#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::SizeIs;

std::vector<std::string> problemsIn(const std::string& text) {
    Findings findings;
    EXPECT_FALSE(readFlow(text, "bad.yaml", findings));
    std::vector<std::string> lines;
    for (const Finding& finding : findings) {
        lines.push_back(finding.describe());
    }
    return lines;
}

std::optional<Flow> read(const std::string& text) {
    Findings findings;
    std::optional<Flow> flow = readFlow(text, "flows/good.yaml", findings);
    EXPECT_EQ(describeErrors(findings), "");
    return flow;
}

TEST(FlowReaderTest, ReportsWhatIsWrongWithItsPlace) {
    const struct {
        const char* text;
        const char* problem;
    } cases[] = {
        // Names.
        {"- tapon: Friends\n", "1:3: error: unknown command 'tapon'; did you mean tapOn?"},
        {"- launchApp\n- jump\n", "2:3: error: unknown command 'jump'"},
        {"- tapOn: {txt: Friends, id: a}\n", "1:11: error: unknown key 'txt'; did you mean text?"},
        {"nmae: x\n---\n- launchApp\n", "1:1: error: unknown key 'nmae'; did you mean name?"},
        {"- setStyle: Compact\n", "1:13: error: 'Compact' is none of compact, expanded; did you mean compact?"},
        // The shape of the file.
        {"", "1:1: error: a flow is an optional map of settings, then '---', then a list of commands"},
        {"name: x\n", "1:1: error: a flow is an optional map of settings, then '---', then a list of commands"},
        {"- launchApp\n---\n- launchApp\n", "1:1: error: a map is expected here"},
        {"- [launchApp]\n", "1:3: error: a command is expected here, such as '- launchApp' or '- tapOn: Friends'"},
        {"- launchApp: {loadingTakes: 5}\n  tapOn: x\n", "2:3: error: a command has one key, and 'launchApp' is it; "
                                                         "indent 'tapOn' further if it belongs to that command"},
        // What YAML itself would let pass.
        {"- tapOn:\n    text: a\n    text: b\n", "3:5: error: 'text' is written twice"},
        {"- tapOn: 'Friends\n- launchApp\n", "1:10: error: this quote is not closed on its line"},
        {"- tapOn: {text: \"a\\\", id: b}\n", "1:17: error: this quote is not closed on its line"},
        {"- tapOn:\n\ttext: a\n", "2:1: error: tab used for indentation; use spaces"},
        {"- assertDebug: [a, b\n", "1:16: error: this bracket is not closed"},
        {"- tapOn: {text: a, id: [\n- launchApp\n", "1:24: error: this bracket is not closed"},
        {"- tapOn: {text: 'a\n    b'}\n",
         "1:17: error: this text runs on into the next line; is a quote, a bracket or a "
         "'-' missing?"},
        {"- tapOn: {text: *a}\n", "1:17: error: a reference (*name) cannot be used in a flow"},
        {"- tapOn: &ü é\n", "1:13: error: names (&name) and tags (!tag) cannot be used in a flow"},
        {"- tapOn: {ü: é, tabs: \"x\", [a]: b}\n", "1:28: error: a key must be a plain word"},
        {"- tapOn: 5: 6\n", "1:11: error: a text in which ': ' occurs must stand in quotes"},
        {"- launchApp\n-\n- resign\n",
         "2:1: error: a command is expected here, such as '- launchApp' or '- tapOn: Friends'"},
        // What another YAML library reads without end.
        {"- launchApp\n, assertVisible: x\n", "2:1: error: a command is expected here, begun with '- '"},
        {",", "1:1: error: not readable as YAML: did not find expected node content"},
        {"[launchApp], [x]", "1:12: error: not readable as YAML: missing document start"},
        {"- launchApp\n%YA: ML\n", "2:1: error: a line of a flow cannot begin with '%'"},
        {"- tapOn: é\xB6\n", "1:11: error: this is no UTF-8; save the file as UTF-8"},
        // Values.
        {"- wait: soon\n", "1:9: error: a whole number, 0 or above, is expected here"},
        {"- wait: -1\n", "1:9: error: a whole number, 0 or above, is expected here"},
        {"- wait: 99999999999\n", "1:9: error: a whole number, 0 or above, is expected here"},
        {"- wait:\n", "1:3: error: a whole number, 0 or above, is expected here"},
        {"- tapOn: {index: 1}\n", "1:10: error: 'text' or 'id' must say which element is meant"},
        {"- tapOn: {point: \"50%,20\"}\n", "1:18: error: a point is written \"120,40\" or \"50%,80%\""},
        {"- tapOn: {point: \"nan,20\"}\n", "1:18: error: a point is written \"120,40\" or \"50%,80%\""},
        {"- swipe: [\"1,1\"]\n", "1:10: error: a swipe needs two points at least"},
        {"- swipe: {start: \"1,1\"}\n",
         "1:10: error: 'direction', 'points', or 'start' and 'end', must say where the finger goes"},
        {"- openBubble: {url: \"https://example.com\"}\n", "1:15: error: 'from' is missing here"},
        {"- receiveMessage: {from: A, url: a b}\n", "1:34: error: 'a b' is not a link"},
        {"- resign: now\n", "1:11: error: this command takes no value"},
        {"device: 15mx\n---\n- launchApp\n", "1:9: error: unknown device '15mx'; did you mean 15max? (se, 8, 8plus, "
                                             "15, 15max, or a size such as 390x844@3, "
                                             "from 100 points and scale 1 to 3)"},
        {"resource: {name: a.json}\n---\n- launchApp\n", "1:11: error: 'file' is missing here"},
    };
    for (const auto& [text, problem] : cases) {
        EXPECT_THAT(problemsIn(text), ElementsAre(std::string("bad.yaml:") + problem)) << text;
    }
}

TEST(FlowReaderTest, ReportsEveryProblemAtOnce) {
    EXPECT_THAT(problemsIn("- tapon: x\n- wait: soon\n"), SizeIs(2));
}

TEST(FlowReaderTest, TakesTheSettingsAndTheCommandsInOrder) {
    const auto flow = read("name: It's \"here\" # 'not a quote\n"
                           "participants: []\n"
                           "withoutResource: [Friends.json]\n"
                           "resource: {name: Family.json, file: broken/Family.json}\n"
                           "---\n"
                           "- launchApp\n"
                           "- tapOn: 'it''s'\n");
    ASSERT_TRUE(flow);
    EXPECT_EQ(flow->name, "It's \"here\"");
    EXPECT_TRUE(flow->participants.empty());
    ASSERT_EQ(flow->overrides.size(), 2u);
    EXPECT_EQ(flow->overrides[0].file, std::nullopt);
    EXPECT_EQ(flow->overrides[1].file, "flows/broken/Family.json");
    ASSERT_EQ(flow->steps.size(), 2u);
    EXPECT_EQ(flow->steps[0].command, "launchApp");
    EXPECT_EQ(flow->steps[1].place.line, 7);
}

TEST(FlowReaderTest, NeedsNoSettings) {
    const auto flow = read("\xEF\xBB\xBF- launchApp\r\n- resign\r\n");
    ASSERT_TRUE(flow);
    EXPECT_EQ(flow->name, "good");
    EXPECT_EQ(flow->steps.size(), 2u);
}

TEST(FlowReaderTest, RefusesNestingThatWouldExhaustTheStack) {
    EXPECT_EQ(problemsIn("- " + std::string(20000, '[') + "\n").size(), 1u);
}

TEST(FlowReaderTest, ReadsAllFlowsOfAFolderAndTellsOfEachThatIsWrong) {
    const support::TemporaryFolder folder;
    for (const std::string name : {"b.yaml", "a.yml", "no-flow.txt"}) {
        folder.write(name, "- launchApp\n");
    }
    Findings findings;
    const std::vector<Flow> flows = readFlowFiles({folder.path().string()}, findings);
    ASSERT_EQ(flows.size(), 2u);
    EXPECT_EQ(flows[0].name + flows[1].name, "ab");
    const std::string bad = folder.write("c.yaml", "- jump\n").string();
    EXPECT_EQ(readFlowFiles({"no/such.yaml", bad, folder.path() / "b.yaml"}, findings).size(), 1u);
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0].path, "no/such.yaml");
    EXPECT_FALSE(findings[0].place);
    EXPECT_EQ(findings[1].path, bad);
}

} // namespace
