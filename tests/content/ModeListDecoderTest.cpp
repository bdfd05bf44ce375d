#include "content/ModeListDecoder.h"

#include <gtest/gtest.h>

#include <string>

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
        // Of several failures the first in the order of reading, whatever the order of the keys.
        {R"([{"items": 1, "sectionTitle": 2}])",
         R"(section 1: "sectionTitle" must be a text, but is a number (line 1, column 15))"},
        {itemFile(R"("isSelected": 1, "subtitle": 2, "title": 3, "icon": 4}, {)"),
         R"(section 1, item 1: "icon" must be a text, but is a number (line 1, column 79))"},
        {itemFile(R"("isSelected": 1, "subtitle": 2, "title": 3, "icon": "i"}, {)"),
         R"(section 1, item 1: "title" must be a text, but is a number (line 1, column 67))"},
        {itemFile(R"("isSelected": 1, "subtitle": 2, "title": "T", "icon": "i"}, {)"),
         R"(section 1, item 1: "subtitle" must be a text, but is a number (line 1, column 52))"},
    };
    for (const auto& [text, error] : cases) {
        EXPECT_EQ(errorOf(text), error) << text;
    }
}
