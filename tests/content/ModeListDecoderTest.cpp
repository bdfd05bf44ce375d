#include "content/ModeListDecoder.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace {

std::string errorOf(const std::string& text) {
    const Result<std::vector<ModeSectionDTO>> sections = decodeModeList(text);
    return sections ? "no error" : sections.error();
}

/// A list of one section with one item of these members.
std::string itemFile(const std::string& members) {
    return R"([{"sectionTitle": "S", "items": [{)" + members + "}]}]";
}

} // namespace

TEST(ModeListDecoder, KeepsTheOrderAndTheTextsOfTheFile) {
    const Result<std::vector<ModeSectionDTO>> decoded = decodeModeList(R"([
        {"sectionTitle": "", "items": []},
        {"items": [{"isSelected": true, "subtitle": "two\nlines", "title": "A & B = C", "icon": "x", "new": [{}]},
                   {"icon": "", "title": "\u00e9\ud83d\ude00\u0000", "subtitle": "", "isSelected": false}],
         "sectionTitle": "Who’s", "colour": null}
    ])");
    ASSERT_TRUE(decoded) << decoded.error();
    const std::vector<ModeSectionDTO>& sections = decoded.value();
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[0].sectionTitle, "");
    EXPECT_TRUE(sections[0].items.empty());
    EXPECT_EQ(sections[1].sectionTitle, "Who’s");
    ASSERT_EQ(sections[1].items.size(), 2U);
    const ModeItemDTO& first = sections[1].items[0];
    EXPECT_EQ(first.icon, "x");
    EXPECT_EQ(first.title, "A & B = C");
    EXPECT_EQ(first.subtitle, "two\nlines");
    EXPECT_TRUE(first.isSelected);
    EXPECT_EQ(sections[1].items[1].title, "é😀\0"s);
    EXPECT_FALSE(sections[1].items[1].isSelected);
}

TEST(ModeListDecoder, TakesAnEmptyListForASuccess) {
    const Result<std::vector<ModeSectionDTO>> decoded = decodeModeList(" [ ] \n");
    ASSERT_TRUE(decoded) << decoded.error();
    EXPECT_TRUE(decoded.value().empty());
}

TEST(ModeListDecoder, SaysWhichKeyOfWhichItemFailsAndWhere) {
    const struct {
        std::string text;
        std::string error;
    } cases[] = {
        {"{}", "the file must hold an array of sections, but holds an object (line 1, column 1)"},
        {"\n 7", "the file must hold an array of sections, but holds a number (line 1, column 1)"},
        {R"(["S"])", "section 1: must be an object, but is a text (line 1, column 2)"},
        {R"([{"items": []}])", R"(section 1: "sectionTitle" is missing (line 1, column 3))"},
        {R"([{"sectionTitle": null, "items": []}])",
         R"(section 1: "sectionTitle" must be a text, but is null (line 1, column 3))"},
        {"[{\"sectionTitle\": \"S\", \"items\": []},\n\n {\"sectionTitle\": \"T\"}]",
         R"(section 2: "items" is missing (line 3, column 19))"},
        {R"([{"sectionTitle": "S", "items": {}}])",
         R"(section 1: "items" must be an array of items, but is an object (line 1, column 24))"},
        {R"([{"sectionTitle": "S", "items": [["icon"]]}])",
         R"(section 1, item 1: must be an object, but is an array (line 1, column 24))"},
        {itemFile(R"("title": "T", "subtitle": "", "isSelected": true)"),
         R"(section 1, item 1: "icon" is missing (line 1, column 44))"},
        {itemFile(R"("icon": null, "title": "T", "subtitle": "", "isSelected": true)"),
         R"(section 1, item 1: "icon" must be a text, but is null (line 1, column 35))"},
        {itemFile("\n\"icon\": \"i\", \"title\": \"T\",\n  \"subtitle\": 3, \"isSelected\": true"),
         R"(section 1, item 1: "subtitle" must be a text, but is a number (line 3, column 3))"},
        {itemFile(R"("icon": "i", "title": "é", "subtitle": "", "isSelected": "true")"),
         R"(section 1, item 1: "isSelected" must be true or false, but is a text (line 1, column 92))"},
        {itemFile(R"("icon": "i", "title": "T", "subtitle": "", "isSelected": 1)"),
         R"(section 1, item 1: "isSelected" must be true or false, but is a number (line 1, column 78))"},
        {itemFile(R"("icon": "i", "title": "T", "subtitle": "")"),
         R"(section 1, item 1: "isSelected" is missing (line 1, column 43))"},
    };
    for (const auto& [text, error] : cases) {
        EXPECT_EQ(errorOf(text), error) << text;
    }
}

TEST(ModeListDecoder, ReportsTheFirstFailureInTheOrderOfReading) {
    const std::string bothKeysWrong = R"([{"items": 1, "sectionTitle": 2}])";
    EXPECT_EQ(errorOf(bothKeysWrong),
              R"(section 1: "sectionTitle" must be a text, but is a number (line 1, column 15))");
    const struct {
        const char* item;
        const char* key;
    } cases[] = {
        {R"({"isSelected": 1, "subtitle": 2, "title": 3, "icon": 4})", "icon"},
        {R"({"isSelected": 1, "subtitle": 2, "title": 3, "icon": "i"})", "title"},
        {R"({"isSelected": 1, "subtitle": 2, "title": "T", "icon": "i"})", "subtitle"},
    };
    for (const auto& [item, key] : cases) {
        const std::string later = "{}]}, 5]"; // more that is wrong, but comes later
        const std::string error = errorOf(R"([{"sectionTitle": "S", "items": [)" + std::string(item) + ", " + later);
        EXPECT_TRUE(error.starts_with("section 1, item 1: \"" + std::string(key) + "\" must be a text")) << error;
    }
}
