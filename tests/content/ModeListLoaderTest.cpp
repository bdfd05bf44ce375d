#include "content/ModeListLoader.h"

#include "platform/foundation/NSBundle.h"
#include "tests/foundation/TemporaryFolder.h"
#include "tests/support/Output.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace std::string_literals;

namespace {

/// An extension bundle of content files only.
class ModeListLoader : public testing::Test {
protected:
    ModeListLoader() { NSBundle::setMainBundle(m_folder.path()); }

    void write(const std::string& key, const std::string& text) { m_folder.write(key + ".json", text); }
    [[nodiscard]] std::filesystem::path place(const std::string& key) const {
        return m_folder.path() / (key + ".json");
    }
    /// The one line that a failing load prints.
    static std::string failure(const std::string& key) {
        EXPECT_FALSE(loadModeSections(key));
        std::string line = support::takeStandardOutput();
        EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1) << line.substr(0, 1000);
        return line;
    }

private:
    TemporaryFolder m_folder;
};

} // namespace

TEST_F(ModeListLoader, ShowsWhatTheFileHolds) {
    write("Couple", R"([{"sectionTitle": "S", "items":
        [{"icon": "i", "title": "T", "subtitle": "U", "isSelected": true}]}, {"sectionTitle": "", "items": []}])");
    const std::optional<std::vector<ModeSection>> sections = loadModeSections("Couple");
    ASSERT_TRUE(sections);
    ASSERT_EQ(sections->size(), 2U);
    EXPECT_EQ(sections->front().sectionTitle, "S");
    ASSERT_EQ(sections->front().items.size(), 1U);
    const ModeItem& item = sections->front().items.front();
    EXPECT_EQ(item.icon, "i");
    EXPECT_EQ(item.title, "T");
    EXPECT_EQ(item.subtitle, "U");
    EXPECT_TRUE(item.isSelected);
    EXPECT_TRUE(sections->back().items.empty());
}

TEST_F(ModeListLoader, GivesAnEmptyListForAnEmptyArrayAndSaysNothing) {
    write("Dating", "[]");
    const std::optional<std::vector<ModeSection>> sections = loadModeSections("Dating");
    ASSERT_TRUE(sections);
    EXPECT_TRUE(sections->empty());
}

TEST_F(ModeListLoader, NamesTheKeyOfAMissingFile) {
    write("Who's Most Likely", "[]"); // the ASCII apostrophe makes it another file
    write("family", "[]");
    EXPECT_EQ(failure("Family"), "❌ JSON file not found: Family\n");
    EXPECT_EQ(failure("Who’s Most Likely"), "❌ JSON file not found: Who’s Most Likely\n");
    EXPECT_TRUE(loadModeSections("Who's Most Likely"));
}

TEST_F(ModeListLoader, SaysInOneLineWhatIsWrongWithTheFile) {
    write("Couple", "[{\"sectionTitle\": \"S\",\n  \"items\": 1}]");
    EXPECT_EQ(failure("Couple"),
              "❌ JSON Decode Error: Couple.json: section 1: \"items\" must be an array of items, but is "
              "a number (line 2, column 3)\n");
    write("Couple", "[{\"sectionTitle\": \"S\",\n  \"items\": tru}]");
    EXPECT_EQ(failure("Couple"), "❌ JSON Decode Error: Couple.json: line 2, column 12: syntax error\n");
}

TEST_F(ModeListLoader, SurvivesFilesThatAreNoText) {
    const struct {
        std::string name;
        std::string text;
    } cases[] = {
        {"zero bytes", ""},
        {"NUL", "\0"s},
        {"NUL in a text", "[{\"sectionTitle\": \"a\0b\", \"items\": []}]"s},
        {"invalid UTF-8", "[{\"sectionTitle\": \"\xFF\", \"items\": []}]"},
        {"a surrogate in UTF-8", "[{\"sectionTitle\": \"\xED\xA0\x80\", \"items\": []}]"},
        {"a lone surrogate", R"([{"sectionTitle": "\ud83d", "items": []}])"},
        {"UTF-16", "\xFF\xFE[\0]\0"s},
        {"deep arrays", std::string(100'000, '[')},
        {"deep and closed", std::string(100'000, '[') + std::string(100'000, ']')},
        {"line breaks in a wrong key", R"([{"a\nb": 1, "items": []}])"},
    };
    for (const auto& [name, text] : cases) {
        write("Friends", text);
        EXPECT_TRUE(failure("Friends").starts_with("❌ JSON Decode Error: Friends.json: ")) << name;
    }
}

TEST_F(ModeListLoader, SurvivesAFileOfFiftyMegabytesThatIsCutOff) {
    const std::string section = R"({"sectionTitle": "S", "items": [{"icon": "i", "title": "T", "subtitle": "U",
        "isSelected": false}]},
)";
    std::string text = "[";
    while (text.size() < 50'000'000) {
        text += section;
    }
    write("Friends", text);
    EXPECT_NE(failure("Friends").find("Friends.json: line "), std::string::npos);
}

TEST_F(ModeListLoader, SurvivesWhatIsNoReadableFile) {
    std::filesystem::create_directory(place("Friends"));
    EXPECT_EQ(failure("Friends"), "❌ JSON Decode Error: The file “Friends.json” couldn’t be opened: it is a folder\n");
    ASSERT_EQ(mkfifo(place("Couple").c_str(), 0600), 0);
    EXPECT_EQ(failure("Couple"),
              "❌ JSON Decode Error: The file “Couple.json” couldn’t be opened: it is not a regular file\n");
    if (geteuid() != 0) { // nothing is unreadable for the superuser
        write("Family", "[]");
        std::filesystem::permissions(place("Family"), std::filesystem::perms::none);
        EXPECT_EQ(failure("Family"),
                  "❌ JSON Decode Error: The file “Family.json” couldn’t be opened: Permission denied\n");
    }
}
