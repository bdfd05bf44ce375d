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
        {nibStart + "\n<objects>\n  </object>",
         ":3:3: error: </object> closes nothing; <objects> in line 2 is to be closed first"},
        {nibStart + "\n<objects/></document><document/>", ":2:22: error: a second outermost element"},
        {"\n", ":1:1: error: the file is empty"},
        {nibStart + "\n<objects><view>\n</objects></document>",
         ":2:10: error: <view> is not closed; </objects> in line 3 closes what is around it"},
        {nibStart + "\n<objects>\n", ":2:1: error: <objects> is not closed before the file ends"},
        {nibStart + "\n<view <view/>", ":2:1: error: the > of this tag is missing"},
        {nibStart + "\n <!-- <view/>", ":2:2: error: <!-- is not closed with -->"},
        {nibStart + "\n<view id=\"a text=\"b\"/>\n<view/>",
         ":2:20: error: the quotes that open here are not closed; a < inside them is written &lt;"},
        {nibStart + "\n<view id=a/></document>",
         ":2:10: error: an attribute is written name=\"value\", in straight quotes"},
        {nibStart + "1 < 2</document>", ":1:63: error: a < begins no element; the character is written &lt;"},
        {nibStart + "\n\xE9</document>", ":2:1: error: a character in this line is no UTF-8; save the file as UTF-8"},
        {std::string("<\0d\0", 4), ":1:1: error: the file is UTF-16; save it as UTF-8"},
        {"<archive/>", ":1:1: error: <archive>: a document of the old form; open it in the editor and save it anew"},
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
