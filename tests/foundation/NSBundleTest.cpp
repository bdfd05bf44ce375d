#include "platform/foundation/NSBundle.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace {

constexpr const char* infoPlist = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict>
    <key>CFBundleVersion</key> <string>7</string>
    <key>NSExtension</key> <!-- the way in --> <dict>
        <key>NSExtensionAttributes</key> <dict/>
        <key>NSExtensionMainStoryboard</key> <string>Main &amp; only</string>
        <key>Flag</key> <true/>
    </dict>
</dict></plist>)";

class NSBundleTest : public testing::Test {
protected:
    support::TemporaryFolder folder;
    NSBundle bundle{folder.path()};
};

} // namespace

TEST_F(NSBundleTest, FindsAResourceByItsExactNameOrWhereTheHostReplacedIt) {
    folder.write("Family.json", "[]");
    const auto file = folder.write("Who’s Most Likely.json", "[]");
    EXPECT_EQ(bundle.URLForResource("Who’s Most Likely", "json"), file);
    EXPECT_EQ(bundle.URLForResource("Who’s Most Likely.json", ""), file);
    EXPECT_FALSE(bundle.URLForResource("Who's Most Likely", "json"));
    EXPECT_FALSE(bundle.URLForResource("who’s most likely", "json"));
    EXPECT_FALSE(bundle.URLForResource("Who’s Most Likely", "JSON"));
    bundle.setResourceOverride("Family.json", "/elsewhere/mine.json");
    EXPECT_EQ(bundle.URLForResource("Family", "json"), "/elsewhere/mine.json");
}

TEST_F(NSBundleTest, DoesNotLookIntoOrOutOfItsFolder) {
    folder.write("inner/A.json", "[]");
    folder.write("A.json", "[]");
    for (const std::string& name : {"inner/A.json"s, "./A.json"s, ".."s, ""s, "A.json\0x"s, std::string(5000, 'a')}) {
        EXPECT_FALSE(bundle.URLForResource(name, "")) << name;
    }
}

TEST_F(NSBundleTest, ReadsTextsOfItsInfoDictionary) {
    EXPECT_FALSE(NSBundle(folder.path()).objectForInfoDictionaryKeyPath({"CFBundleVersion"})) << "without a file";
    folder.write("Info.plist", infoPlist);
    EXPECT_EQ(bundle.objectForInfoDictionaryKeyPath({"CFBundleVersion"}), "7");
    EXPECT_EQ(bundle.objectForInfoDictionaryKeyPath({"NSExtension", "NSExtensionMainStoryboard"}), "Main & only");
    EXPECT_FALSE(bundle.objectForInfoDictionaryKeyPath({"NSExtension", "Flag"})) << "no text";
    EXPECT_FALSE(bundle.objectForInfoDictionaryKeyPath({"CFBundleVersion", "More"}));
    EXPECT_FALSE(bundle.objectForInfoDictionaryKeyPath({"NSExtensionMainStoryboard"})) << "in another dictionary";
    folder.write("Info.plist", "<plist><dict><key>");
    EXPECT_FALSE(NSBundle(folder.path()).objectForInfoDictionaryKeyPath({"CFBundleVersion"}));
}
