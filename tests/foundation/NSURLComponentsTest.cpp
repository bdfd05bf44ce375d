#include "platform/foundation/NSURLComponents.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace {

NSURLComponents link(std::vector<NSURLQueryItem> items) {
    return {"https", "game.example", "/Category", std::move(items)};
}

std::string queryWithValue(const std::string& value) {
    const auto url = link({{"v", value}}).URL();
    return url ? std::string(url->query()) : "no address";
}

} // namespace

TEST(NSURLComponents, WritesPartsInOrder) {
    const auto url = link({{"main", "Couple"}, {"section", ""}, {"icon", std::nullopt}}).URL();
    ASSERT_TRUE(url);
    EXPECT_EQ(url->absoluteString(), "https://game.example/Category?main=Couple&section=&icon");
}

TEST(NSURLComponents, EncodesWhatAQueryMayNotHoldAsUpperCaseBytes) {
    EXPECT_EQ(queryWithValue("AZaz09-._~!$'()*+,;:@/?"), "v=AZaz09-._~!$'()*+,;:@/?");
    EXPECT_EQ(queryWithValue("a&b=c Who’s"), "v=a%26b%3Dc%20Who%E2%80%99s");
    EXPECT_EQ(queryWithValue("😀"), "v=%F0%9F%98%80");
    EXPECT_EQ(queryWithValue("#%[]\"<>\\^`{|}"), "v=%23%25%5B%5D%22%3C%3E%5C%5E%60%7B%7C%7D");
    EXPECT_EQ(queryWithValue("\0\n\x7F"s), "v=%00%0A%7F");
    EXPECT_EQ(link({{"a&=", "1"}}).URL()->query(), "a%26%3D=1");
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
        EXPECT_FALSE(parts.URL()) << parts.scheme << parts.path;
    }
}

TEST(NSURLComponents, LeavesOutEmptyParts) {
    EXPECT_EQ((NSURLComponents{"", "game.example", "", {}}).URL()->absoluteString(), "//game.example");
    EXPECT_EQ((NSURLComponents{"tel", "", "12", {}}).URL()->absoluteString(), "tel:12");
    EXPECT_EQ((NSURLComponents{"https", "bücher.example", "/a b", {}}).URL()->absoluteString(),
              "https://b%C3%BCcher.example/a%20b");
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

TEST(NSURLComponents, ReadsForeignQueries) {
    const auto items =
        NSURLComponents::componentsWithURL(*NSURL::URLWithString("https://h/?a=b=c&&%c3%a9=x+y")).queryItems;
    const std::vector<NSURLQueryItem> expected = {{"a", "b=c"}, {"", std::nullopt}, {"é", "x+y"}};
    EXPECT_EQ(items, expected);
}
