#include "simulator/flows/FlowReader.h"

#include "platform/foundation/FileReading.h"
#include "simulator/flows/FlowTable.h"
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
        {"- tapOn Friends\n", "1:3: error: a ':' is missing behind 'tapOn'"},
        {"name: x\n- launchApp\n", "2:1: error: a setting is expected here; a line '---' parts settings and commands"},
        {"-launchApp\n- wait: 5\n",
         "1:1: error: a command begins with '- ', below the one before it; is a blank missing here?"},
        {"- tapOn: {txt: Friends, id: a}\n", "1:11: error: unknown key 'txt'; did you mean text?"},
        {"nmae: x\n---\n- launchApp\n", "1:1: error: unknown key 'nmae'; did you mean name?"},
        {"- setStyle: Compact\n", "1:13: error: 'Compact' is not one of compact, expanded; did you mean compact?"},
        // The shape of the file.
        {"", "1:1: error: a flow is an optional map of settings, then '---', then a list of commands"},
        {"name: x\n", "1:1: error: a flow is an optional map of settings, then '---', then a list of commands"},
        {"- launchApp\n---\n- launchApp\n", "1:1: error: a map with 'name' or other keys is expected here"},
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
        {"- wait: soon\n", "1:9: error: a whole number from 0 to 1000000000 is expected here"},
        {"- wait: -1\n", "1:9: error: a whole number from 0 to 1000000000 is expected here"},
        {"- wait: 99999999999\n", "1:9: error: a whole number from 0 to 1000000000 is expected here"},
        {"- wait:\n", "1:3: error: a whole number from 0 to 1000000000 is expected here"},
        {"- tapOn: {index: 1}\n", "1:10: error: 'text' or 'id' must say which element is meant"},
        {"- tapOn: {point: \"50%,20\"}\n", "1:18: error: a point such as \"120,40\" or \"50%,80%\" is expected here"},
        {"- tapOn: {point: \"nan,20\"}\n", "1:18: error: a point such as \"120,40\" or \"50%,80%\" is expected here"},
        {"- swipe: [\"1,1\"]\n", "1:10: error: a list of points, two at least, is expected here"},
        {"- swipe: {start: \"1,1\"}\n",
         "1:10: error: 'direction', 'points', or 'start' and 'end', must say where the finger goes"},
        {"- openBubble: {url: \"https://example.com\"}\n", "1:15: error: 'from' is missing here"},
        {"- receiveMessage: {from: A, url: a b}\n", "1:34: error: 'a b' is not a link"},
        {"- tapOn:\n", "1:3: error: a text that is not empty or a map with 'text' or other keys is expected here"},
        {"- tapOn: \"\"\n", "1:10: error: a text that is not empty is expected here"},
        {"withoutResource: {a: b}\n---\n- launchApp\n", "1:18: error: a text or a list of texts is expected here"},
        {"resource: [[{name: a.json, file: a.json}]]\n---\n- launchApp\n",
         "1:12: error: a map with 'name' and 'file' is expected here"},
        {"- resign: now\n", "1:11: error: nothing is expected here"},
        {"device: 15mx\n---\n- launchApp\n", "1:9: error: unknown device '15mx'; did you mean 15max? (se, 8, 8plus, "
                                             "15, 15max, or a size such as 390x844@3, "
                                             "from 100 points and scale 1 to 3)"},
        {"resource: {name: a.json}\n---\n- launchApp\n", "1:11: error: 'file' is missing here"},
        {"resource: {name: a.json, file: no.json}\n---\n- launchApp\n", "1:32: error: there is no file no.json"},
        {"- repeat: {commands: [scroll]}\n", "1:11: error: 'times' or 'while' must say how often"},
        {"- repeat: {times: 2}\n", "1:11: error: 'commands' is missing here"},
        {"- runFlow: {when: {visible: x}}\n", "1:12: error: either 'file' or 'commands' must say what is played"},
        {"- tapOn: {text: a, enabled: yes}\n", "1:29: error: true or false is expected here"},
    };
    for (const auto& [text, problem] : cases) {
        EXPECT_THAT(problemsIn(text), ElementsAre(std::string("bad.yaml:") + problem)) << text;
    }
}

TEST(FlowReaderTest, ReportsEveryProblemAtOnce) {
    EXPECT_THAT(problemsIn("participants: [Ann]\ndevice: 16\n---\n- receiveMessage: {from: Ann}\n- jump\n"), SizeIs(2));
    EXPECT_THAT(problemsIn("- tapon: x\n- wait: soon\n- repeat: {times: 2, commands: [scrol, {wait: x}]}\n"),
                SizeIs(4));
}

TEST(FlowReaderTest, TakesTheSettingsAndTheCommandsInOrder) {
    const support::TemporaryFolder folder;
    const std::string replacement = folder.write("a.json", "[]").string();
    Findings findings;
    const auto flow = readFlow("name: It's \"here\" # 'not a quote\n"
                               "participants: []\n"
                               "withoutResource: [Friends.json]\n"
                               "resource: {name: Family.json, file: a.json}\n"
                               "---\n"
                               "- openBubble: {from: C, label: Somebody else}\n"
                               "- tapOn: 'it''s'\n",
                               folder.path() / "test.yaml", findings);
    ASSERT_TRUE(flow);
    EXPECT_EQ(findings.at(0).what, "'C' is not in the conversation") << "a warning";
    EXPECT_EQ(flow->name, "It's \"here\"");
    EXPECT_TRUE(flow->participants.empty());
    ASSERT_EQ(flow->overrides.size(), 2u);
    EXPECT_EQ(flow->overrides[0].file, std::nullopt);
    EXPECT_EQ(flow->overrides[1].file, replacement);
    ASSERT_EQ(flow->steps.size(), 2u);
    EXPECT_EQ(flow->steps[0].name, "Somebody else");
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

TEST(FlowReaderTest, FindsTheFlowsOfAFolderAndOfThoseBelow) {
    const support::TemporaryFolder folder;
    for (const std::string name : {"b.yaml", "a.yml", "no-flow.txt", "deep/er/c.yaml"}) {
        folder.write(name, "- launchApp\n");
    }
    const std::string start = folder.path().string() + "/";
    EXPECT_THAT(flowFilesAt(folder.path()), ElementsAre(start + "a.yml", start + "b.yaml", start + "deep/er/c.yaml"));
    EXPECT_THAT(flowFilesAt("no/such.yaml"), ElementsAre("no/such.yaml"));
    Findings findings;
    EXPECT_FALSE(readFlowFile("no/such.yaml", findings));
    EXPECT_EQ(findings.at(0).path, "no/such.yaml");
}

TEST(FlowReaderTest, ReadsTheFlowsThatAFlowRunsWithTheirNames) {
    const support::TemporaryFolder folder;
    folder.write("steps/tap.yaml", "env: {ROW: Nobody, AGAIN: '1'}\n---\n- tapOn: ${ROW}\n- wait: ${AGAIN}\n");
    const std::string file = folder.write("a.yaml", "").string();
    Findings findings;
    const auto flow = readFlow(
        "env: {WHO: Friends}\n---\n- runFlow: {file: steps/tap.yaml, env: {ROW: \"All ${WHO}\"}}\n", file, findings);
    EXPECT_EQ(describeErrors(findings), "");
    EXPECT_TRUE(flow);

    folder.write("steps/back.yaml", "- launchApp\n- runFlow: ../a.yaml\n");
    folder.write("steps/bad.yaml", "- tapOn: ${RWO}\n- jump\n");
    EXPECT_FALSE(
        readFlow("- runFlow: steps/back.yaml\n- runFlow: {file: steps/bad.yaml, env: {ROW: x}}\n- runFlow: no\n", file,
                 findings));
    const std::string start = folder.path().string() + "/steps/";
    EXPECT_EQ(describeErrors(findings),
              start + "back.yaml:2:12: error: this flow runs in a circle: it is already being run\n" + start +
                  "bad.yaml:1:10: error: nothing is called 'RWO' in env; did you mean ROW?\n" + start +
                  "bad.yaml:2:3: error: unknown command 'jump'\n" + file +
                  ":3:12: error: The file “no” couldn’t be opened: No such file or directory");
}

TEST(FlowReaderTest, BoundsFlowsThatRunFlows) {
    const support::TemporaryFolder folder;
    for (int i = 0; i < 6; ++i) {
        std::string text;
        for (int j = 0; j < 20; ++j) {
            text += "- runFlow: " + std::to_string(i + 1) + ".yaml\n";
        }
        folder.write(std::to_string(i) + ".yaml", text);
    }
    folder.write("6.yaml", "- launchApp\n");
    Findings findings;
    EXPECT_FALSE(readFlowFile(folder.path() / "0.yaml", findings));
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_THAT(findings[0].what, testing::HasSubstr("at most 10000 commands"));
}

std::string rowsOf(const FlowKeys& keys) {
    std::string rows;
    for (const FlowKey& key : keys) {
        rows += "| `" + std::string(key.name) + "` | " + key.form.describe() + " | " + key.purpose + " |\n";
    }
    return rows;
}

/// The options of a command that only it has.
std::string optionsOf(const FlowCommand& command) {
    std::string options;
    for (const FlowKey& key : command.options) {
        const auto isKey = [&key](const FlowKey& other) { return std::string_view(key.name) == other.name; };
        const bool isOfElements = std::any_of(selectorKeys().begin(), selectorKeys().end(), isKey);
        if (std::string_view("label optional").find(key.name) == std::string_view::npos &&
            (!isOfElements || key.form.type == FlowType::text || key.need == FlowNeed::required)) {
            options += "<br>`" + std::string(key.name) + "`: " + key.purpose;
        }
    }
    return options;
}

TEST(FlowTableTest, StandsInTheDocumentWhoseExamplesAreFlows) {
    const std::string folder = TD_FLOWS;
    const std::string document = readWholeFile(folder + "/../docs/write-a-flow.md").value();
    std::string commands;
    for (const FlowCommand& command : flowCommands()) {
        std::string examples;
        for (const std::string example : command.examples) {
            examples += (examples.empty() ? "`" : "<br>`") + example + "`";
            Findings findings;
            EXPECT_TRUE(readFlow("- " + example + "\n", folder + "/example.yaml", findings))
                << describeErrors(findings);
        }
        commands += "| " + examples + " | " + command.purpose + optionsOf(command) + " |\n";
    }
    for (const std::string& rows : {commands, rowsOf(flowSettings()), rowsOf(selectorKeys())}) {
        EXPECT_NE(document.find(rows), std::string::npos) << "docs/write-a-flow.md lacks:\n" << rows;
    }
}

} // namespace
