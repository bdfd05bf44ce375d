#include "content/ModeListLoader.h"

#include "content/ModeSectionDTO.h"
#include "platform/foundation/NSBundle.h"
#include "tests/support/Output.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <type_traits>

using namespace std::string_literals;

namespace {

/// What is read from a record that anyone may hold.
template <class Record, class Reader>
constexpr bool isFixed(Reader Record::*) {
    using Field = std::invoke_result_t<Reader Record::*, Record&>;
    return !std::is_assignable_v<Field, std::decay_t<Field>>;
}
static_assert(isFixed(&ModeItemDTO::icon) && isFixed(&ModeItemDTO::title) && isFixed(&ModeItemDTO::subtitle) &&
              isFixed(&ModeItemDTO::isSelected));
static_assert(isFixed(&ModeSectionDTO::sectionTitle) && isFixed(&ModeSectionDTO::items));
static_assert(isFixed(&ModeItem::icon) && isFixed(&ModeItem::title) && isFixed(&ModeItem::subtitle));
static_assert(isFixed(&ModeSection::sectionTitle) && isFixed(&ModeSection::items));

/// An extension bundle of content files only.
class ModeListLoader : public testing::Test {
protected:
    ModeListLoader() { NSBundle::setMainBundle(folder.path()); }

    void write(const std::string& key, const std::string& text) { folder.write(key + ".json", text); }
    /// The one line that a failing load prints.
    static std::string failure(const std::string& key) {
        EXPECT_FALSE(loadModeSections(key));
        std::string line = support::takeStandardOutput();
        EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1) << line.substr(0, 1000);
        return line;
    }

    support::TemporaryFolder folder;
};

} // namespace

TEST_F(ModeListLoader, KeepsTheOrderAndTheTextsOfTheFile) {
    write("Couple", R"([
        {"sectionTitle": "", "items": []},
        {"items": [{"isSelected": true, "subtitle": "two\nlines", "title": "A & B = C", "icon": "x", "new": [{}]},
                   {"icon": "", "title": "\u00e9\ud83d\ude00\u0000", "subtitle": "", "isSelected": false}],
         "sectionTitle": "Who’s", "colour": null}
    ])");
    const std::optional<std::vector<ModeSection>> sections = loadModeSections("Couple");
    ASSERT_TRUE(sections);
    ASSERT_EQ(sections->size(), 2U);
    EXPECT_EQ(sections->front().sectionTitle(), "");
    EXPECT_TRUE(sections->front().items().empty());
    EXPECT_EQ(sections->back().sectionTitle(), "Who’s");
    ASSERT_EQ(sections->back().items().size(), 2U);
    const ModeItem& first = sections->back().items().front();
    EXPECT_EQ(first.icon(), "x");
    EXPECT_EQ(first.title(), "A & B = C");
    EXPECT_EQ(first.subtitle(), "two\nlines");
    EXPECT_TRUE(first.isSelected);
    EXPECT_EQ(sections->back().items().back().title(), "é😀\0"s);
    EXPECT_FALSE(sections->back().items().back().isSelected);
}

TEST(ModeSection, SharesItsTextsWithACopyWhoseItemsMayBeReplaced) {
    const ModeSection section("S", {ModeItem("i", "T", "U", false)});
    ModeSection copy = section;
    EXPECT_EQ(&copy.items(), &section.items());
    std::vector<ModeItem> items = copy.items();
    items.front().isSelected = true;
    copy.setItems(items);
    EXPECT_TRUE(copy.items().front().isSelected);
    EXPECT_EQ(copy.sectionTitle(), "S");
    EXPECT_FALSE(section.items().front().isSelected);
}

TEST_F(ModeListLoader, NamesTheKeyOfAMissingFile) {
    write("Who's Most Likely", "[]"); // the ASCII apostrophe makes it another file
    write("family", "[]");
    EXPECT_EQ(failure("Family"), "❌ JSON file not found: Family\n");
    EXPECT_EQ(failure("Who’s Most Likely"), "❌ JSON file not found: Who’s Most Likely\n");
    EXPECT_TRUE(loadModeSections("Who's Most Likely"));
}

TEST_F(ModeListLoader, SaysInOneLineWhereTheFileIsNoJSON) {
    write("Couple", "[{\"sectionTitle\": \"S\",\n  \"items\": tru}]");
    EXPECT_EQ(failure("Couple"), "❌ JSON Decode Error: Couple.json: line 2, column 12: syntax error\n");
    for (const std::string& text : {""s, "\0"s, "[{\"sectionTitle\": \"a\0b\", \"items\": []}]"s,
                                    "[{\"sectionTitle\": \"\xFF\", \"items\": []}]"s, "\xFF\xFE[\0]\0"s,
                                    std::string(10'000'000, '['), R"([{"a\nb": 1, "items": []}])"s}) {
        write("Friends", text);
        EXPECT_TRUE(failure("Friends").starts_with("❌ JSON Decode Error: Friends.json: ")) << text.substr(0, 100);
    }
}

TEST_F(ModeListLoader, SurvivesAFolderInPlaceOfAFile) {
    std::filesystem::create_directory(folder.path() / "Friends.json");
    EXPECT_EQ(failure("Friends"), "❌ JSON Decode Error: The file “Friends.json” couldn’t be opened: it is a folder\n");
}
