#include "platform/foundation/JSONDocument.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace {

std::string errorOf(const std::string& text) {
    const Result<JSONDocument> document = JSONDocument::parse(text);
    return document ? "no error" : document.failure().describe();
}

JSONDocument parsed(const std::string& text) {
    Result<JSONDocument> document = JSONDocument::parse(text);
    EXPECT_TRUE(document) << text;
    return std::move(document).value();
}

/// The value written anew, as far as it can be taken for something.
std::string written(JSONValue value) {
    if (const std::optional<bool> flag = value.boolean()) {
        return *flag ? "true " : "false ";
    }
    if (const std::optional<double> number = value.number()) {
        return std::to_string(static_cast<int>(*number)) + ' ';
    }
    std::string text = value.is(JSONKind::null) ? "null " : std::string(value.string().value_or("(")) + ' ';
    for (const JSONValue element : value.elements()) {
        text += written(element);
    }
    for (const JSONValue::Member& member : value.members()) {
        text += std::string(member.key) + ':' + written(member.value);
    }
    return text;
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

TEST(JSONDocument, GivesEveryValueInOrderAsWhatItIs) {
    JSONDocument first =
        parsed(R"([{"items": [[], {"x": {}}, "true", null, true, false], "b": 1, "b": -2.5e1}, [], 7])");
    const JSONDocument document = std::move(first); // stays whole when it is moved
    EXPECT_EQ(written(document.root()), "( ( items:( ( ( x:( true null true false b:1 b:-25 ( 7 ");
    EXPECT_EQ(document.root().elements().size(), 3U);
    const JSONValue object = *document.root().elements().begin();
    EXPECT_EQ(object.find("b")->number(), -25) << "the last of its name";
    EXPECT_FALSE(object.find("x")) << "a member of an element of a member";
    EXPECT_FALSE(document.root().find("b")) << "an array has no members";
}

TEST(JSONDocument, DecodesEscapesAndSkipsAByteOrderMark) {
    const JSONDocument document = parsed("\xEF\xBB\xBF"
                                         R"({"k\u0065y": "a\n\"\\\/\u0000\u00e9\ud83d\ude00 z"})");
    EXPECT_EQ(document.root().find("key")->string(), "a\n\"\\/\0é😀 z"s);
}

TEST(JSONDocument, SaysWhereTheTextIsWrong) {
    EXPECT_EQ(errorOf("[1,\n  {\"a\": tru}]"), "line 2, column 9: syntax error");
    EXPECT_EQ(errorOf(""), "line 1, column 1: incomplete JSON");
    EXPECT_EQ(errorOf("\xEF\xBB\xBF[\"é😀\" x]"), "line 1, column 7: syntax error")
        << "columns count characters, not bytes";
    EXPECT_EQ(errorOf("[1]\r\n]"), "line 2, column 1: extra data");
}

TEST(JSONDocument, RefusesWhatIsNotStrictJsonOrBrokenTextOrNestedTooDeeply) {
    for (const std::string& text : {"[1,]"s, "[01]"s, "{'a':1}"s, "[1] // c"s, "{a:1}"s, "[NaN]"s, "[\"a"s, "[\"\t\"]"s,
                                    "{\"a\"}"s, "[\"\xFF\"]"s, "[\"\\ud800\"]"s, "[\"\\udc00\"]"s, "[\"\\ud800x\"]"s,
                                    "[\"a\0b\"]"s, "[1]\0"s, "\0"s, "[\"\xED\xA0\x80\"]"s}) {
        const std::string error = errorOf(text);
        EXPECT_NE(error, "no error") << testing::PrintToString(text);
        EXPECT_EQ(error.find('\n'), std::string::npos);
    }
    EXPECT_EQ(errorOf(std::string(500, '[') + std::string(500, ']')), "no error");
    EXPECT_EQ(errorOf(std::string(100'000, '[')), "line 1, column 513: too deep");
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
