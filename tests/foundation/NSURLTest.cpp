#include "platform/foundation/NSURL.h"

#include <gtest/gtest.h>

TEST(NSURL, GivesItsParts) {
    const auto url = NSURL::URLWithString("https://user@game.example:8080/a/b%20c?x=1&y#top");
    ASSERT_TRUE(url);
    EXPECT_EQ(url->scheme(), "https");
    EXPECT_EQ(url->host(), "game.example");
    EXPECT_EQ(url->path(), "/a/b%20c");
    EXPECT_EQ(url->query(), "x=1&y");
}

TEST(NSURL, GivesEmptyPartsForWhatIsAbsent) {
    const auto url = NSURL::URLWithString("/only/a:path");
    ASSERT_TRUE(url);
    EXPECT_EQ(url->path(), "/only/a:path");
    EXPECT_TRUE(url->scheme().empty() && url->host().empty() && url->query().empty());
    EXPECT_EQ(NSURL::URLWithString("https://game.example?q")->query(), "q");
    EXPECT_EQ(NSURL::URLWithString("https://[::1]:80/")->host(), "[::1]");
}

TEST(NSURL, IsNotMadeFromTextThatIsNoAddress) {
    for (const char* text : {"", "has space", "é", "a\nb", "100%", "%2", "%GG", "a<b>", "quote\""}) {
        EXPECT_FALSE(NSURL::URLWithString(text)) << text;
    }
}
