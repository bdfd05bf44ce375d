#include "platform/foundation/NSBundle.h"

#include "tests/foundation/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using namespace std::string_view_literals;

namespace {

constexpr const char* infoPlist = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
    <key>CFBundleVersion</key> <string>7</string>
    <key>NSExtension</key>
    <!-- the way in -->
    <dict>
        <key>NSExtensionAttributes</key> <dict/>
        <key>NSExtensionMainStoryboard</key> <string>Main &amp; only</string>
        <key>Flag</key> <true/>
    </dict>
</dict>
</plist>)";

class NSBundleTest : public testing::Test {
protected:
    TemporaryFolder folder;
    NSBundle bundle{folder.path()};
};

} // namespace

TEST_F(NSBundleTest, FindsAResourceByItsExactName) {
    const auto file = folder.write("Who’s Most Likely.json", "[]");
    EXPECT_EQ(bundle.URLForResource("Who’s Most Likely", "json"), file);
    EXPECT_EQ(bundle.URLForResource("Who’s Most Likely.json", ""), file);
    EXPECT_FALSE(bundle.URLForResource("Who's Most Likely", "json"));
    EXPECT_FALSE(bundle.URLForResource("who’s most likely", "json"));
    EXPECT_FALSE(bundle.URLForResource("Who’s Most Likely", "JSON"));
}

TEST_F(NSBundleTest, DoesNotLookIntoOrOutOfItsFolder) {
    std::filesystem::create_directory(folder.path() / "inner");
    folder.write("inner/A.json", "[]");
    folder.write("A.json", "[]");
    EXPECT_FALSE(bundle.URLForResource("inner/A", "json"));
    EXPECT_FALSE(bundle.URLForResource("./A", "json"));
    EXPECT_FALSE(bundle.URLForResource("..", ""));
    EXPECT_FALSE(bundle.URLForResource("", "json"));
    EXPECT_FALSE(bundle.URLForResource("A.json\0x"sv, ""));
    EXPECT_FALSE(bundle.URLForResource(std::string(5000, 'a'), "json"));
}

TEST_F(NSBundleTest, LetsTheHostReplaceAResource) {
    folder.write("Family.json", "[]");
    bundle.setResourceOverride("Family.json", "/elsewhere/mine.json");
    EXPECT_EQ(bundle.URLForResource("Family", "json"), "/elsewhere/mine.json");
}

TEST_F(NSBundleTest, ReadsTextsOfItsInfoDictionary) {
    folder.write("Info.plist", infoPlist);
    EXPECT_EQ(bundle.objectForInfoDictionaryKeyPath({"CFBundleVersion"}), "7");
    EXPECT_EQ(bundle.objectForInfoDictionaryKeyPath({"NSExtension", "NSExtensionMainStoryboard"}), "Main & only");
    EXPECT_FALSE(bundle.objectForInfoDictionaryKeyPath({"NSExtension", "Flag"}));
    EXPECT_FALSE(bundle.objectForInfoDictionaryKeyPath({"NSExtension"}));
    EXPECT_FALSE(bundle.objectForInfoDictionaryKeyPath({"CFBundleVersion", "More"}));
    EXPECT_FALSE(bundle.objectForInfoDictionaryKeyPath({"NSExtensionMainStoryboard"}));
}

TEST_F(NSBundleTest, HasNoInfoWithoutAReadableFile) {
    EXPECT_FALSE(bundle.objectForInfoDictionaryKeyPath({"CFBundleVersion"}));
    TemporaryFolder other;
    other.write("Info.plist", "<plist><dict><key>");
    EXPECT_FALSE(NSBundle(other.path()).objectForInfoDictionaryKeyPath({"CFBundleVersion"}));
}

TEST_F(NSBundleTest, TheMainBundleIsEmptyUntilTheHostNamesIt) {
    folder.write("A.json", "[]");
    EXPECT_FALSE(NSBundle::mainBundle().URLForResource("A", "json"));
    NSBundle::setMainBundle(folder.path());
    EXPECT_TRUE(NSBundle::mainBundle().URLForResource("A", "json"));
}
