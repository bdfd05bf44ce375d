#include "simulator/check/ContentCheck.h"

#include "content/ModeListDecoder.h"
#include "platform/foundation/FileReading.h"
#include "simulator/check/FindingsReport.h"
#include "simulator/check/ListSchema.h"
#include "simulator/check/TextEncoding.h"
#include "simulator/check/TolerantJSON.h"
#include "tests/support/InterfaceBundle.h"

#include <gmock/gmock.h>

#include <random>
#include <regex>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::string soundList = R"([
  {"sectionTitle": "Warm Up", "items": [
    {"icon": "icon_dice", "title": "Easy", "subtitle": "One", "isSelected": false},
    {"icon": "icon_dice", "title": "Hard", "subtitle": "Two", "isSelected": true}
  ]},
  {"sectionTitle": "", "items": []}
])";

class ContentCheck : public support::InterfaceBundle {
protected:
    ContentCheck() {
        write("Assets.xcassets/icon_dice.imageset/Contents.json",
              "{\"images\":[{\"idiom\":\"universal\",\"filename\":\"icon_dice.png\"}]}");
    }

    /// "3:5 content.comma", one for each finding.
    static std::vector<std::string> placesAndRules(const std::string& text) {
        std::vector<std::string> found;
        for (const Finding& finding : checkContentText(text, "List.json")) {
            const std::string place =
                finding.place ? std::to_string(finding.place->line) + ":" + std::to_string(finding.place->column) + " "
                              : "";
            found.push_back(place + finding.rule);
        }
        return found;
    }
    /// The sound list with one part of it written otherwise.
    static std::string with(const std::string& part, const std::string& instead) {
        std::string text = soundList;
        return text.replace(text.find(part), part.size(), instead);
    }
    static std::string firstWords(const std::string& text) {
        const Findings findings = checkContentText(text, "List.json");
        return findings.empty() ? "" : findings.front().what;
    }
};

TEST_F(ContentCheck, TellsEachSlipAtItsPlaceAndReadsOn) {
    EXPECT_THAT(placesAndRules(soundList), ElementsAre());
    EXPECT_THAT(placesAndRules("\xEF\xBB\xBF" + soundList), ElementsAre());
    const struct {
        std::string text;
        std::vector<std::string> found;
    } slips[] = {
        {with("false},\n", "false}\n"), {"3:82 content.comma"}},
        {std::regex_replace(with("false},\n", "false}\n"), std::regex("\n"), "\r"), {"3:82 content.comma"}},
        {with("\"Easy\",", "\u00A0\"Easy\",\u200B"), {"3:36 content.syntax", "3:44 content.syntax"}},
        {with("\"Easy\",", "\"Easy\",,"), {"3:43 content.comma"}},
        {with("true}", "true},"), {"4:82 content.comma"}},
        {with("\"Easy\"", "“Who’s Easy”"), {"3:36 content.quotes"}},
        {with("\"Easy\"", "'It's easy'"), {"3:36 content.quotes"}},
        {with("\"Easy\",", "\"Easy,"), {"3:36 content.quotes"}},
        {with("\"Easy\"", "Easy\""), {"3:36 content.quotes"}},
        {with("\"Easy\"", "Go: now, then\""), {"3:36 content.quotes"}},
        {with("\"title\":", "\"title:"), {"3:27 content.quotes"}},
        {with("\"items\":", "\"items:"), {"2:31 content.quotes"}},
        {with("[\n    {", "\n    {"), {"3:5 content.bracket"}},
        {with("\"items\": [\n    {", "\n    {"), {"3:5 content.bracket", "3:5 content.key-misspelt"}},
        {with("\"Easy\"", "\"Easy\"\""), {"3:42 content.quotes"}},
        {with("\"Easy\"", "\"Say \"hi\" now\""), {"3:41 content.quotes"}},
        {with("\"Warm Up\",", "\"Warm Up,\n"), {"2:20 content.quotes"}},
        {with("true", "True"), {"4:77 content.word"}},
        {with("{\"icon\"", "// mine\n{\"icon\""), {"3:5 content.comment"}},
        {with("\"One\"", "\"One\nmore\""), {"3:60 content.text"}},
        {with("\"One\"", "\"One\tmore\""), {"3:60 content.text"}},
        {with("\"One\"", "\"\\ud83d One\""), {"3:57 content.text"}},
        {with("false},", "false,"), {"3:5 content.bracket"}},
        {with("  ]},", "  },"), {"2:40 content.bracket"}},
        {with("  ]},", "  ],"), {"2:3 content.bracket"}},
        {with("\"title\":", "\"title\""), {"3:27 content.syntax"}},
        {with("\"title\":", "\"title\" ="), {"3:35 content.syntax"}},
        {with("\"title\":", "\"title\" =>"), {"3:35 content.syntax"}},
        {with("\"title\": \"Hard\"", "\"titel\": 5, \"title\": 4, \"colour\": \"red\""),
         {"4:27 content.key-unknown", "4:48 content.key-type", "4:51 content.key-unknown"}},
        {with("\"title\": \"Hard\"", "\"titel\": \"Hard\""), {"4:27 content.key-misspelt"}},
        {with("\"title\": \"Hard\"", "\"title\": \"Easy\""), {"4:36 content.title-doubled"}},
        {with("\"title\": \"Hard\", ", ""), {"4:5 content.key-missing"}},
        {with("items", "itmes").replace(57, 9, "Dice"), {"2:31 content.key-misspelt", "3:14 content.icon"}},
        {with("title", "ti\u200Btle"), {"3:27 content.key-misspelt"}},
        {with("  ]},\n", "  ,\n"), {"2:3 content.bracket", "2:40 content.bracket"}},
        {with("{\"sectionTitle\": \"\", \"items\": []}",
              R"({"icon": "", "title": "", "subtitle": "", "isSelected": true})"),
         {"6:3 content.level", "6:12 content.icon", "6:25 content.title-empty"}},
        {with("{\"sectionTitle\": \"Warm Up\", \"items\": [",
              "{\"sectionTitle\": \"A\", \"items\": [{\"sectionTitle\": \"B\", \"items\": []},"),
         {"2:35 content.level"}},
        {with("true", "\"true\""), {"4:77 content.key-type"}},
        {with("\"icon_dice\"", "\"icon_dyce\""), {"3:14 content.icon"}},
        {with("\"Easy\"", "\" \""), {"3:36 content.title-empty"}},
        {with("\"Easy\"", "\"Caf\xE9\""), {"3:40 content.encoding"}},
        {std::string("[\0", 2), {"content.encoding"}},
        {"{\\rtf1 []}", {"content.encoding"}},
        {" \n", {"1:1 content.empty"}},
        {soundList + soundList, {"7:2 content.root", "8:20 content.title-doubled"}},
        {R"({"sectionTitle": "", "items": []})", {"1:1 content.root"}},
        {"[1]", {"1:2 content.key-type"}},
        {"{\"sections\": " + soundList + "}", {"1:1 content.root"}},
        {"[" + soundList + "]", {"1:2 content.root"}},
        {soundList + "\nThanks, \"Ann\"!\n", {"8:1 content.root"}},
        {std::string(600, '['), {"1:2 content.root", "1:3 content.key-type", "1:513 content.bracket"}},
    };
    for (const auto& slip : slips) {
        EXPECT_EQ(placesAndRules(slip.text), slip.found) << slip.text;
    }
    EXPECT_THAT(placesAndRules(with("\"Easy\"", "“Easy”") + "]"),
                ElementsAre("3:36 content.quotes", "7:2 content.bracket"));
}

TEST_F(ContentCheck, SaysWhatToWriteInstead) {
    EXPECT_THAT(firstWords(with("\"title\"", "\"titel\"")), HasSubstr("did you mean \"title\"?"));
    EXPECT_THAT(firstWords(with("icon_dice", "icon_dyce")), HasSubstr("did you mean \"icon_dice\"?"));
    EXPECT_THAT(firstWords(R"([{"sectionTitle": "", "items": [
    {"icon": "no", "title": "a", "subtitle": "", "isSelected": true},
    {"icon": "no", "title": "b", "subtitle": "", "isSelected": true},
    {"icon": "no", "title": "c", "subtitle": "", "isSelected": true},
    {"icon": "no", "title": "d", "subtitle": "", "isSelected": true}]}])"),
                HasSubstr("there is no icon \"no\" (4 times in this file, the last in line 5)"));
    EXPECT_THAT(firstWords(with("icon_dice", "Dice")), HasSubstr("did you mean \"icon_dice\"?"));
    EXPECT_THAT(firstWords(with("title", std::string(1000, 'x'))), HasSubstr("xxx…\" is no key of an item"));
    EXPECT_THAT(firstWords(with("sectionTitle", "title")), HasSubstr("did you mean \"sectionTitle\"?"));
    EXPECT_THAT(firstWords(std::regex_replace(soundList, std::regex("\""), "“")),
                HasSubstr("(20 times in this file, the last in line 6)"));
    EXPECT_THAT(firstWords(with("true}\n  ]},", "true}\n  },")), HasSubstr("; write ] at the end of line 4"));
    EXPECT_THAT(firstWords("[\n{\"sectionTitle\": \"\",\n\"items\": []\n]"),
                HasSubstr("; write } at the end of line 3"));
    EXPECT_THAT(firstWords(with("Two\", \"isSelected\": true}", "Two\",\n     \"isSelected\": true")),
                HasSubstr("; write } at the end of line 5"));
    EXPECT_THAT(firstWords(soundList.substr(0, 70)),
                HasSubstr("this { is not closed; write }]}] at the end of the file"));
    EXPECT_THAT(firstWords(R"({"sectionTitle": "", "items": []})"), HasSubstr("put [ before it"));
    ASSERT_EQ(checkContentName("Freinds.json", ContentPlace::elsewhere).size(), 1u);
    EXPECT_THAT(checkContentName("Freinds.json", ContentPlace::elsewhere).front().what,
                HasSubstr("did you mean \"Friends.json\"?"));
    EXPECT_TRUE(checkContentName("my-list.json", ContentPlace::elsewhere).empty());
    EXPECT_TRUE(checkContentName("Who’s Most Likely.json", ContentPlace::bundle).empty());
    EXPECT_EQ(checkContentName("my-list.json", ContentPlace::bundle).size(), 1u);
    EXPECT_THAT(checkContentName("friends.JSON.txt", ContentPlace::elsewhere).front().what,
                HasSubstr("did you mean \"Friends.json\"?"));
    EXPECT_TRUE(isNamedAsList("a.Json") && isNamedAsList("a.json.TXT"));
    EXPECT_FALSE(isNamedAsList("a.txt") || isNamedAsList("json"));
}

TEST_F(ContentCheck, PointsAtThePlaceInAnExcerptThatTheTerminalHasRoomFor) {
    const struct {
        std::string line;
        int column;
        std::string excerpt;
    } excerpts[] = {
        {"ab", 2, "  ab\n   ^\n"},
        {"\xEF\xBB\xBF"
         "ab",
         2, "  ab\n   ^\n"},
        {"日😀e\u0301x", 5, "  日😀e\u0301x\n       ^\n"},
        {"a\x1B[\tb", 5, "  a\\x1B[ b\n         ^\n"},
        {"caf\xE9s", 5, "  caf\uFFFDs\n      ^\n"},
        {std::string(30, 'x'), 1, "  xxxxxxxxxxxxxxxxxx…\n  ^\n"},
        {std::string(1000000, 'x') + "!", 1000001, "  …xxxxxxxxxxxx!\n               ^\n"},
        {"", 1, ""},
        {"a", 40, ""},
    };
    for (const auto& each : excerpts) {
        write("line.json", each.line + "\r\n");
        const std::string path = (folder() / "line.json").string();
        const std::string text =
            textReport({{Severity::error, path, TextPlace{1, each.column}, "w", ""}}, 1, {24, false});
        EXPECT_THAT(text, HasSubstr("error: w\n" + each.excerpt + "1 error,")) << each.line.substr(0, 40);
    }
}

/// The two readers of JSON must agree on what is JSON.
void expectAgreement(const std::string& text) {
    const bool isSound = static_cast<bool>(JSONDocument::parse(text));
    std::string_view body = text;
    body.remove_prefix(body.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    Slips slips;
    static_cast<void>(readTolerantly(body, slips));
    EXPECT_EQ(isSound, slips.empty() && firstInvalidUTF8(body) == std::string_view::npos) << text;
}

TEST(TolerantJSON, AgreesWithTheStrictReader) {
    for (const char* text : {"",
                             " ",
                             "[]",
                             "{}",
                             "null",
                             "nul",
                             "0",
                             "-0",
                             "-",
                             "+1",
                             "01",
                             "1.",
                             ".5",
                             "1e5",
                             "1E+5",
                             "1e",
                             "1e+",
                             "-1.5e-3",
                             "--1",
                             "1x",
                             "\"\"",
                             "\"",
                             "\"\\",
                             "\"\\\"",
                             "\"\\x\"",
                             "\"\\u12\"",
                             "\"\\u0000\"",
                             "\"\\uD834\\uDD1E\"",
                             "\"\\uD834\"",
                             "\"\\uDD1E\"",
                             "\"\\uD834\\u0041\"",
                             "\"\x7F\"",
                             "\"\x1F\"",
                             "\"\xC3\xA9\"",
                             "\"\xE9\"",
                             "\"\xC0\x80\"",
                             "\"\xED\xA0\x80\"",
                             "\"\xF4\x90\x80\x80\"",
                             "\"\xEF\xBF\xBF\"",
                             "[1,]",
                             "[,1]",
                             "[1 2]",
                             "[1,,2]",
                             "[",
                             "]",
                             "[[]",
                             "[]]",
                             "{\"a\"}",
                             "{\"a\":}",
                             "{\"a\":1,}",
                             "{,}",
                             "{\"a\":1 \"b\":2}",
                             "{a:1}",
                             "{1:1}",
                             "{\"a\":1,\"a\":2}",
                             "{\"a\"::1}",
                             "[:]",
                             "[1:2]",
                             "{[]:1}",
                             "[}",
                             "{]",
                             "[1;2]",
                             "[true,false,null]",
                             "[True]",
                             "[NaN]",
                             "[Infinity]",
                             "['a']",
                             "[\"a\" // x\n]",
                             "/**/[]",
                             "[]/",
                             "#",
                             "[]\n[]",
                             "[] x",
                             "\f[]",
                             "\xC2\xA0[]",
                             "[\xE2\x80\x8B]",
                             "\xEF\xBB\xBF[]",
                             "[\"a\nb\"]",
                             "[\"a\tb\"]",
                             "[\"a\"b\"]",
                             "{\"a:\" \n:1}",
                             "{\"a: \":1}",
                             "{\"a:\\\" \":1}",
                             "[true, \":\"]",
                             "[a\"]"}) {
        expectAgreement(text);
    }
    expectAgreement(std::string("[\0]", 3));
    expectAgreement(std::string(512, '[') + std::string(512, ']'));
    expectAgreement(std::string(513, '[') + std::string(513, ']'));
    expectAgreement("[" + std::string(100000, ','));
    expectAgreement(std::string(100000, '{'));
}

TEST(TolerantJSON, AgreesOnShippedListsWithRandomSlips) {
    constexpr std::string_view inserted = "{}[],:\"'\\\n\t aT1-.\xC3\xE2\x80";
    std::mt19937 random(20240229); // the same slips at every run
    const auto below = [&](std::size_t count) { return static_cast<std::size_t>(random()) % count; };
    const Result<std::string> list = readWholeFile(TD_BUNDLE "/Couple.json");
    const std::string text = list.value().substr(0, 900);
    for (int round = 0; round < 3000; ++round) {
        std::string changed = text.substr(0, below(2) == 0 ? text.size() : below(text.size()) + 1);
        for (std::size_t slips = below(3); slips > 0; --slips) {
            const std::size_t at = below(changed.size());
            switch (below(3)) {
            case 0:
                changed.insert(at, 1, inserted[below(inserted.size())]);
                break;
            case 1:
                changed.erase(at, 1 + below(3));
                break;
            default:
                changed[at] = inserted[below(inserted.size())];
            }
            changed += changed.empty() ? " " : "";
        }
        expectAgreement(changed);
        if (testing::Test::HasFailure()) {
            return;
        }
    }
    expectAgreement(list.value());
}

TEST(ListSchema, IsWhatTheExtensionReads) {
    const std::string item = R"({"icon": "a", "title": "b", "subtitle": "c", "isSelected": true})";
    const auto accepts = [](const std::string& text) { return static_cast<bool>(decodeModeList(text)); };
    ASSERT_TRUE(accepts("[{\"sectionTitle\": \"t\", \"items\": [" + item + "]}]"));
    for (const ListKey& key : itemKeys()) {
        std::string lacking = item;
        lacking.replace(lacking.find(key.name), key.name.size(), "other");
        EXPECT_FALSE(accepts("[{\"sectionTitle\": \"t\", \"items\": [" + lacking + "]}]")) << key.name;
    }
    EXPECT_EQ(itemKeys().size(), 4u);
    EXPECT_EQ(sectionKeys().size(), 2u);
    EXPECT_FALSE(accepts(R"([{"items": []}])"));
    EXPECT_FALSE(accepts(R"([{"sectionTitle": ""}])"));
}

} // namespace
