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

TEST(NSURLComponents, MakesNoAddressThatWouldReadDifferentlyOrOfBrokenText) {
    for (const NSURLComponents& parts : std::vector<NSURLComponents>{{"1http", "h", "/", {}},
                                                                     {"https", "h", "noslash", {}},
                                                                     {"https", "", "//h", {}},
                                                                     {"", "", "a:b", {}},
                                                                     {},
                                                                     link({{"v", "\xFF"}}),
                                                                     link({{"v", "\xED\xA0\x80"}}),
                                                                     link({{"\xC3", "1"}})}) {
        EXPECT_EQ(textOf(parts), "no address");
    }
}

TEST(NSURLComponents, TakesApartWhatItWrote) {
    const NSURLComponents written =
        link({{"main", "Who’s & what=?"}, {"empty", ""}, {"bare", std::nullopt}, {"plus", "18+ %41"}});
    const NSURLComponents read = NSURLComponents::componentsWithURL(*written.URL());
    EXPECT_EQ(read.scheme, "https");
    EXPECT_EQ(read.host, "game.example");
    EXPECT_EQ(read.path, "/Category");
    EXPECT_EQ(read.queryItems, written.queryItems);
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
