#include "content/ModeListDecoder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string errorOf(const std::string& text) {
    const Result<std::vector<ModeSectionDTO>> sections = decodeModeList(text);
    return sections ? "no error" : sections.failure().describe();
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
        {"{}", "line 1, column 1: the file must hold an array of sections, but holds an object"},
        {"\n 7", "line 2, column 2: the file must hold an array of sections, but holds a number"},
        {R"(["S"])", "line 1, column 2: section 1: must be an object, but is a text"},
        {R"([{"sectionTitle": "S", "items": [{"icon": "i", "title": "T", "subtitle": "", "isSelected": true}]}, "S"])",
         R"(line 1, column 101: section 2: must be an object, but is a text)"},
        {R"([{"items": []}])", R"(line 1, column 2: section 1: "sectionTitle" is missing)"},
        {R"([{"sectionTitle": null, "items": []}])",
         R"(line 1, column 19: section 1: "sectionTitle" must be a text, but is null)"},
        {"[{\"sectionTitle\": \"S\", \"items\": []},\n\n {\"sectionTitle\": \"T\"}]",
         R"(line 3, column 2: section 2: "items" is missing)"},
        {R"([{"sectionTitle": "S", "items": {}}])",
         R"(line 1, column 33: section 1: "items" must be an array of items, but is an object)"},
        {R"([{"sectionTitle": "S", "items": [["icon"]]}])",
         R"(line 1, column 34: section 1, item 1: must be an object, but is an array)"},
        {itemFile(R"("title": "T", "subtitle": "", "isSelected": true)"),
         R"(line 1, column 34: section 1, item 1: "icon" is missing)"},
        {itemFile(R"("icon": null, "title": "T", "subtitle": "", "isSelected": true)"),
         R"(line 1, column 43: section 1, item 1: "icon" must be a text, but is null)"},
        {itemFile("\n\"icon\": \"i\", \"title\": \"T\",\n  \"subtitle\": 3, \"isSelected\": true"),
         R"(line 3, column 15: section 1, item 1: "subtitle" must be a text, but is a number)"},
        {itemFile(R"("icon": "i", "title": "é", "subtitle": "", "isSelected": "true")"),
         R"(line 1, column 92: section 1, item 1: "isSelected" must be true or false, but is a text)"},
        {itemFile(R"("icon": "i", "title": "T", "subtitle": "", "isSelected": 1)"),
         R"(line 1, column 92: section 1, item 1: "isSelected" must be true or false, but is a number)"},
        {itemFile(R"("icon": true, "title": "T")"),
         R"(line 1, column 43: section 1, item 1: "icon" must be a text, but is true)"},
        {itemFile(R"("icon": "i", "title": false)"),
         R"(line 1, column 57: section 1, item 1: "title" must be a text, but is false)"},
        {itemFile(R"("icon": "i", "title": "T", "subtitle": "")"),
         R"(line 1, column 34: section 1, item 1: "isSelected" is missing)"},
        // Of several failures the first in the order of reading, whatever the order of the keys.
        {R"([{"items": 1, "sectionTitle": 2}])",
         R"(line 1, column 31: section 1: "sectionTitle" must be a text, but is a number)"},
        {R"([{"items": [{"icon": 1}], "sectionTitle": 2}])",
         R"(line 1, column 43: section 1: "sectionTitle" must be a text, but is a number)"},
        // The last of a name counts, whatever the earlier ones are; what is not known is no list, whatever it holds.
        {R"([{"items": [7], "items": [], "sectionTitle": 1, "sectionTitle": "S"}])", "no error"},
        {R"([{"sectionTitle": "S", "old": {"items": 1, "x": [{"sectionTitle": 2}]}, "items": []}])", "no error"},
        {R"([7, tru])", "line 1, column 5: syntax error"},
        {itemFile(R"("isSelected": 1, "subtitle": 2, "title": 3, "icon": 4}, {)"),
         R"(line 1, column 87: section 1, item 1: "icon" must be a text, but is a number)"},
        {itemFile(R"("isSelected": 1, "subtitle": 2, "title": 3, "icon": "i"}, {)"),
         R"(line 1, column 76: section 1, item 1: "title" must be a text, but is a number)"},
        {itemFile(R"("isSelected": 1, "subtitle": 2, "title": "T", "icon": "i"}, {)"),
         R"(line 1, column 64: section 1, item 1: "subtitle" must be a text, but is a number)"},
    };
    for (const auto& [text, error] : cases) {
        EXPECT_EQ(errorOf(text), error) << text;
    }
}
