#include "platform/foundation/NSURL.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace {

NSURLComponents link(std::vector<NSURLQueryItem> items) {
    return {"https", "game.example", "/Category", std::move(items)};
}

std::string textOf(const NSURLComponents& parts) {
    const std::optional<NSURL> url = parts.URL();
    return url ? url->absoluteString() : "no address";
}

NSURLComponents componentsOf(const char* text) {
    return NSURLComponents::componentsWithURL(*NSURL::URLWithString(text));
}

} // namespace

TEST(NSURLComponents, WritesPartsInOrderWithoutTheEmptyOnes) {
    EXPECT_EQ(textOf(link({{"main", "Couple"}, {"section", ""}, {"icon", std::nullopt}})),
              "https://game.example/Category?main=Couple&section=&icon");
    EXPECT_EQ(textOf({"", "game.example", "", {}}), "//game.example");
    EXPECT_EQ(textOf({"tel", "", "12", {}}), "tel:12");
    EXPECT_EQ(textOf({"https", "bücher.example", "/a b", {}}), "https://b%C3%BCcher.example/a%20b");
}

TEST(NSURLComponents, EncodesWhatAQueryMayNotHoldAsUpperCaseBytes) {
    EXPECT_EQ(textOf(link({{"AZaz09-._~!$'()*+,;:@/?", "a&b=c Who’s😀"}, {"#%[]\"<>\\^`{|}", "\0\n\x7F"s}})),
              "https://game.example/Category?AZaz09-._~!$'()*+,;:@/?=a%26b%3Dc%20Who%E2%80%99s%F0%9F%98%80&"
              "%23%25%5B%5D%22%3C%3E%5C%5E%60%7B%7C%7D=%00%0A%7F");
}

TEST(NSURLComponents, MakesNoAddressThatWouldReadDifferentlyNorOfBrokenText) {
    const NSURLComponents cases[] = {
        {"1http", "h", "/", {}}, {"https", "h", "noslash", {}}, {"https", "", "//h", {}}, {"", "", "a:b", {}}, {}};
    for (const NSURLComponents& parts : cases) {
        EXPECT_EQ(textOf(parts), "no address") << parts.scheme << parts.path;
    }
    for (const char* broken : {"\xFF", "a\x80", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
        EXPECT_EQ(textOf(link({{"v", broken}})), "no address") << testing::PrintToString(broken);
        EXPECT_EQ(textOf(link({{broken, "1"}})), "no address");
        EXPECT_EQ(textOf({"https", broken, "/", {}}), "no address");
    }
}

TEST(NSURLComponents, ReadsForeignAddresses) {
    const NSURLComponents parts =
        componentsOf("https://user@b%C3%BCcher.example:8080/a/b%20c?a=b=c&&%c3%a9=x+y#top?no=query");
    EXPECT_EQ(parts.scheme, "https");
    EXPECT_EQ(parts.host, "bücher.example");
    EXPECT_EQ(parts.path, "/a/b c");
    EXPECT_EQ(parts.queryItems, (std::vector<NSURLQueryItem>{{"a", "b=c"}, {"", std::nullopt}, {"é", "x+y"}}));
    EXPECT_EQ(componentsOf("https://[::1]:80/").host, "[::1]");
    EXPECT_EQ(componentsOf("https://game.example?q").queryItems, (std::vector<NSURLQueryItem>{{"q", std::nullopt}}));
    const NSURLComponents path = componentsOf("/only/a:path");
    EXPECT_EQ(path.path, "/only/a:path");
    EXPECT_TRUE(path.scheme.empty() && path.host.empty() && path.queryItems.empty());
}

TEST(NSURL, IsNotMadeFromTextThatIsNoAddress) {
    for (const char* text : {"", "has space", "é", "a\nb", "100%", "%2", "%GG", "a<b>", "quote\""}) {
        EXPECT_FALSE(NSURL::URLWithString(text)) << text;
    }
}
