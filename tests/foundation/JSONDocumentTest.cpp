#include "platform/foundation/JSONDocument.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace {

std::string errorOf(const std::string& text) {
    const Result<JSONDocument> document = JSONDocument::parse(text);
    return document ? "no error" : document.failure().describe();
}

/// "line 2, column 5", without the parser's own words.
std::string placeOfError(const std::string& text) {
    const std::string error = errorOf(text);
    return error.substr(0, error.find(':'));
}

JSONDocument parsed(const std::string& text) {
    Result<JSONDocument> document = JSONDocument::parse(text);
    EXPECT_TRUE(document) << text;
    return std::move(document).value();
}

std::vector<JSONKind> kindsIn(const JSONValue& array) {
    std::vector<JSONKind> kinds;
    for (const JSONValue element : array.elements()) {
        kinds.push_back(element.kind());
    }
    return kinds;
}

/// The text has each key and each value on a line of its own, one space in.
void expectOneALine(const JSONDocument& document, JSONValue value, int& line) {
    EXPECT_EQ(document.placeOf(value), (TextPlace{++line, 2}));
    for (const JSONValue element : value.elements()) {
        expectOneALine(document, element, line);
    }
    for (const JSONValue::Member& member : value.members()) {
        EXPECT_EQ(document.placeOfKey(member), (TextPlace{++line, 2}));
        expectOneALine(document, member.value, line);
    }
}

} // namespace

TEST(JSONDocument, GivesEveryKindOfValue) {
    JSONDocument first = parsed(R"({"s": "text", "t": true, "f": false, "n": null, "i": -3, "d": 2.5e1, "a": [1]})");
    const JSONDocument document = std::move(first); // stays whole when it is moved
    const JSONValue root = document.root();
    EXPECT_EQ(root.find("s")->string(), "text");
    EXPECT_EQ(root.find("t")->boolean(), true);
    EXPECT_EQ(root.find("f")->boolean(), false);
    EXPECT_EQ(root.find("n")->kind(), JSONKind::null);
    EXPECT_EQ(root.find("i")->number(), -3);
    EXPECT_EQ(root.find("d")->number(), 25);
    EXPECT_EQ(root.find("a")->elements().size(), 1U);
    EXPECT_FALSE(root.find("missing"));
}

TEST(JSONDocument, DoesNotTakeOneKindForAnother) {
    const JSONDocument document = parsed(R"({"one": 1, "text": "true", "truth": true, "nest": {"k": 1}, "list": [1]})");
    const JSONValue root = document.root();
    EXPECT_FALSE(root.find("one")->boolean());
    EXPECT_FALSE(root.find("one")->find("k"));
    EXPECT_FALSE(root.find("text")->boolean());
    EXPECT_FALSE(root.find("truth")->number());
    EXPECT_FALSE(root.find("truth")->string());
    EXPECT_EQ(root.find("nest")->elements().size(), 0U);
    EXPECT_FALSE(root.find("list")->find("k"));
}

TEST(JSONDocument, WalksNestedContainersInOrder) {
    const JSONDocument document = parsed(R"([{"items": [[], {"x": {}}, "last"]}, [], 7])");
    EXPECT_EQ(kindsIn(document.root()), (std::vector{JSONKind::object, JSONKind::array, JSONKind::number}));
    EXPECT_EQ(kindsIn(*(*document.root().elements().begin()).find("items")),
              (std::vector{JSONKind::array, JSONKind::object, JSONKind::string}));
}

TEST(JSONDocument, KeepsMembersInOrderAndFindsTheLastOfAName) {
    const JSONDocument document = parsed(R"({"b": [1, 2], "a": 1, "b": 2})");
    std::string keys;
    for (const JSONValue::Member& member : document.root().members()) {
        keys += member.key;
    }
    EXPECT_EQ(keys, "bab");
    EXPECT_EQ(document.root().find("b")->number(), 2);
}

TEST(JSONDocument, DecodesEscapes) {
    const JSONDocument document = parsed(R"({"k\u0065y": "a\n\"\\\/\u0000\u00e9\ud83d\ude00 z"})");
    EXPECT_EQ(document.root().find("key")->string(), "a\n\"\\/\0é😀 z"s);
}

TEST(JSONDocument, SkipsAByteOrderMark) {
    EXPECT_EQ(parsed("\xEF\xBB\xBF[1]").root().elements().size(), 1U);
    EXPECT_EQ(placeOfError("\xEF\xBB\xBF[x"), "line 1, column 2");
}

TEST(JSONDocument, SaysWhereTheTextIsWrong) {
    EXPECT_EQ(errorOf("[1,\n  {\"a\": tru}]"), "line 2, column 9: syntax error");
    EXPECT_EQ(placeOfError(""), "line 1, column 1");
    EXPECT_EQ(placeOfError("[\"é😀\" x]"), "line 1, column 7") << "columns count characters, not bytes";
    EXPECT_EQ(placeOfError("[1]\r\n]"), "line 2, column 1");
}

TEST(JSONDocument, RefusesWhatIsNotStrictJsonOrBrokenText) {
    for (const std::string& text : {"[1,]"s, "[01]"s, "{'a':1}"s, "[1] // c"s, "{a:1}"s, "[NaN]"s, "[\"a"s, "[\"\t\"]"s,
                                    "{\"a\"}"s, "[\"\xFF\"]"s, "[\"\\ud800\"]"s, "[\"\\udc00\"]"s, "[\"\\ud800x\"]"s,
                                    "[\"a\0b\"]"s, "[1]\0"s, "\0"s, "[\"\xED\xA0\x80\"]"s}) {
        const std::string error = errorOf(text);
        EXPECT_NE(error, "no error") << testing::PrintToString(text);
        EXPECT_EQ(error.find('\n'), std::string::npos);
    }
}

TEST(JSONDocument, RefusesDeepNestingWithoutHarm) {
    EXPECT_EQ(errorOf(std::string(500, '[') + std::string(500, ']')), "no error");
    EXPECT_EQ(errorOf(std::string(100'000, '[')), "line 1, column 513: too deep");
    std::string objects;
    for (int i = 0; i < 100'000; ++i) {
        objects += "{\"a\":";
    }
    EXPECT_NE(errorOf(objects), "no error");
}

TEST(JSONDocument, SaysWhereEveryKeyAndValueBegins) {
    const JSONDocument document = parsed("\xEF\xBB\xBF\n"
                                         R"( {
 "k\u0065y\"\\":
 {},
 "é😀":
 [
 null,
 5,
 "},{\" [",
 [
 [],
 true]],
 "twice":
 {
 "":
 -2.5e+1},
 "twice":
 false
 })");
    int line = 1;
    expectOneALine(document, document.root(), line);
    EXPECT_EQ(line, 18);
}

TEST(JSONDocument, CountsThePlaceInCharacters) {
    const JSONDocument document = parsed(R"({"é😀":[0,{"k":null}],"x":{}})");
    const std::vector<JSONValue::Member> members = document.root().members();
    const JSONValue inner = *++members[0].value.elements().begin();
    EXPECT_EQ(document.placeOf(inner), (TextPlace{1, 10}));
    EXPECT_EQ(document.placeOf(*inner.find("k")), (TextPlace{1, 15}));
    EXPECT_EQ(document.placeOfKey(members[1]), (TextPlace{1, 22}));
    const JSONDocument bare = parsed("7");
    EXPECT_EQ(bare.placeOf(bare.root()), (TextPlace{1, 1}));
}
