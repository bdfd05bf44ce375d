#include "platform/interface/InterfaceDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>

namespace {

const std::string nibStart = "<document type=\"com.apple.InterfaceBuilder3.CocoaTouch.XIB\">";

std::string repeated(const std::string& text, int count) {
    std::ostringstream all;
    std::fill_n(std::ostream_iterator<std::string>(all), count, text);
    return all.str();
}

TEST(InterfaceDocument, KeepsTheLineAndColumnOfEveryElementInCharacters) {
    const InterfaceDocument::Loaded loaded = InterfaceDocument::parse(
        "A.xib",
        "\xEF\xBB\xBF" + nibStart +
            "\n  <objects>\r\n\t<view\n id=\"&b; &amp;&#x41;\"/><label text=\"日本é\"/><a/></objects></document>");
    ASSERT_TRUE(loaded);
    const InterfaceElement& objects = *loaded.value()->root().child("objects");
    EXPECT_EQ(objects.place, (TextPlace{2, 3}));
    EXPECT_EQ(objects.children[0].place, (TextPlace{3, 2}));
    EXPECT_EQ(objects.children[1].place, (TextPlace{4, 24}));
    EXPECT_EQ(objects.children[2].place, (TextPlace{4, 43})); // three characters of eight bytes stand before it
    EXPECT_EQ(objects.children[0].value("id"), "&b; &A") << "an unknown entity stays as it is";
}

TEST(InterfaceDocument, TellsThePlacesOnOneLongLineAsFastAsOnManyShortOnes) {
    const InterfaceDocument::Loaded loaded = InterfaceDocument::parse(
        "A.xib", nibStart + "<objects>" + repeated("<view/>", 500'000) + "</objects></document>");
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded.value()->root().child("objects")->children.back().place, (TextPlace{1, 3'500'063}));
}

TEST(InterfaceDocument, RefusesWhatIsNoDocumentForThePhoneAndSaysWhere) {
    const std::vector<std::pair<std::string, std::string>> refused{
        {"<document type=\"com.apple.InterfaceBuilder3.Cocoa.XIB\"/>",
         ":1:1: error: <document>: type is \"com.apple.InterfaceBuilder3.Cocoa.XIB\", a document for the desktop; one "
         "for the phone (CocoaTouch) is expected"},
        {"\n <plist/>", ":2:2: error: <plist>: no interface document, whose outermost element is <document>"},
        {nibStart + "</document>", ":1:1: error: <document>: the document has no <objects>"},
        {nibStart + "\n<objects>\n  </object>", ":3:5: error: malformed XML: Start-end tags mismatch"},
        {nibStart + "\n<objects/></document><document/>", ":2:22: error: malformed XML: a second outermost element"},
        {"", ":1:1: error: malformed XML: No document element found"},
        {"<?xml version=\"1.0\"?>\n<!DOCTYPE d [<!ENTITY a \"ha\"><!ENTITY b \"&a;&a;&a;\">]>\n" + nibStart +
             "<objects><label text=\"&b;\"/></objects></document>",
         ":2:1: error: a document type (DOCTYPE) is not accepted"},
        {nibStart + "<objects>\n" + repeated("<subviews>", 100'000) + repeated("</subviews>", 100'000) +
             "</objects></document>",
         ":2:1981: error: elements are nested more than 200 deep"},
        {std::string(InterfaceDocument::largestSize + 1, ' '), ": error: the file is larger than 8 MB"}};
    for (const auto& [text, problem] : refused) {
        const InterfaceDocument::Loaded loaded = InterfaceDocument::parse("A.xib", text);
        ASSERT_FALSE(loaded) << problem;
        EXPECT_EQ(loaded.failure().in("A.xib").describe(), "A.xib" + problem);
    }
}

} // namespace
