#include "platform/interface/InterfaceDocument.h"

#include <gtest/gtest.h>

namespace {

const std::string nibStart = "<document type=\"com.apple.InterfaceBuilder3.CocoaTouch.XIB\">";

std::string problemOf(const std::string& text) {
    const LoadedDocument loaded = InterfaceDocument::parse("A.xib", text);
    return loaded.document ? "" : loaded.problem.describe();
}

TEST(InterfaceDocument, KeepsTheLineAndColumnOfEveryElement) {
    const LoadedDocument loaded = InterfaceDocument::parse(
        "A.xib", nibStart + "\n  <objects>\r\n\t<view\n id=\"a\"/><label/></objects></document>");
    ASSERT_TRUE(loaded.document);
    const InterfaceElement& objects = *loaded.document->objects();
    EXPECT_EQ(objects.line, 2);
    EXPECT_EQ(objects.column, 3);
    EXPECT_EQ(objects.children[0].line, 3);
    EXPECT_EQ(objects.children[0].column, 2);
    EXPECT_EQ(objects.children[1].line, 4);
    EXPECT_EQ(objects.children[1].column, 10);
}

TEST(InterfaceDocument, SkipsAByteOrderMarkWithoutLosingItsPlace) {
    const LoadedDocument loaded =
        InterfaceDocument::parse("A.xib", "\xEF\xBB\xBF" + nibStart + "\n <objects/></document>");
    ASSERT_TRUE(loaded.document);
    EXPECT_EQ(loaded.document->objects()->line, 2);
    EXPECT_EQ(loaded.document->objects()->column, 2);
}

TEST(InterfaceDocument, RefusesWhatIsNoDocumentForThePhone) {
    EXPECT_EQ(problemOf("<document type=\"com.apple.InterfaceBuilder3.Cocoa.XIB\"/>"),
              "A.xib:1:1: error: <document>: type is \"com.apple.InterfaceBuilder3.Cocoa.XIB\", a document for the "
              "desktop; one for the phone (CocoaTouch) is expected");
    EXPECT_EQ(problemOf("\n <plist/>"),
              "A.xib:2:2: error: <plist>: no interface document, whose outermost element is <document>");
    EXPECT_EQ(problemOf(nibStart + "</document>"), "A.xib:1:1: error: <document>: the document has no <objects>");
}

TEST(InterfaceDocument, TellsWhereXMLIsMalformed) {
    EXPECT_EQ(problemOf(nibStart + "\n<objects>\n  </object>"),
              "A.xib:3:5: error: malformed XML: Start-end tags mismatch");
    EXPECT_EQ(problemOf(nibStart + "\n<objects/></document><document/>"),
              "A.xib:2:22: error: malformed XML: a second outermost element");
    EXPECT_EQ(problemOf(""), "A.xib:1:1: error: malformed XML: No document element found");
}

TEST(InterfaceDocument, RefusesADocumentTypeAndWithItEntityBombs) {
    const std::string bomb =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE d [<!ENTITY a \"ha\"><!ENTITY b \"&a;&a;&a;&a;\">]>\n" + nibStart +
        "<objects><label text=\"&b;\"/></objects></document>";
    EXPECT_EQ(problemOf(bomb), "A.xib:2:1: error: a document type (DOCTYPE) is not accepted");
}

TEST(InterfaceDocument, LeavesEntitiesItDoesNotKnowUnexpanded) {
    const LoadedDocument loaded =
        InterfaceDocument::parse("A.xib", nibStart + "<objects><label text=\"&b; &amp;&#x41;\"/></objects></document>");
    ASSERT_TRUE(loaded.document);
    EXPECT_EQ(loaded.document->objects()->children[0].value("text"), "&b; &A");
}

TEST(InterfaceDocument, LimitsDepthAndSize) {
    std::string deep = nibStart + "<objects>\n";
    for (int i = 0; i < 100000; ++i) {
        deep += "<subviews>";
    }
    for (int i = 0; i < 100000; ++i) {
        deep += "</subviews>";
    }
    EXPECT_EQ(problemOf(deep + "</objects></document>"), "A.xib:2:1981: error: elements are nested more than 200 deep");
    EXPECT_EQ(problemOf(std::string(InterfaceDocument::largestSize + 1, ' ')),
              "A.xib: error: the file is larger than 8 MB");
}

} // namespace
