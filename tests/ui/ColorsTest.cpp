#include "ui/Colors.h"
#include "tests/ui/Catalog.h"

#include <gtest/gtest.h>

TEST(HexColor, ReadsSixDigitsAndNothingElse) {
    const std::pair<RGBA, std::vector<const char*>> cases[] = {
        {support::rgb(77, 162, 137), {"4DA289", "#4da289", " 4DA289\n", "\u00A0\t#4Da289\r\n\u2003"}},
        {support::rgb(242, 242, 246), {"F2F2F6"}},
        // Not six characters: one mark is removed, and three letters with accents are three characters.
        {UIColor::grayColor()->components(), {"", "#", "FFF", "#4DA2891", "##4DA289", "e\u0301e\u0301e\u0301"}},
        // Six characters as a person counts them, and the digits up to the first other one; ßßß becomes SSSSSS.
        {support::rgb(0, 0, 0x12), {"12G456", "12\u0301G456"}},
        {support::rgb(0, 0, 0), {"éééééé", "👩‍👩‍👧GGGGG", "GHIJKL", "0x12AB", "-12345", "ßßß", "# 4DA28"}},
    };
    for (const auto& [color, texts] : cases) {
        for (const char* text : texts) {
            EXPECT_EQ(colorFromHex(text)->components(), color) << '"' << text << '"';
        }
    }
}

// Named colours are looked up once per process, so each of these must run in one of its own, as it does under ctest.

TEST(NamedColors, ComeFromTheCatalogueOnce) {
    const auto catalog = support::installCatalog();
    const auto green = UIColor::colorWithRedGreenBlueAlpha(0, 1, 0, 1);
    catalog->colors["AppGreen"] = green;
    catalog->colors["TextColor"] = UIColor::blackColor();
    EXPECT_EQ(named_colors::appGreen(), green);
    EXPECT_EQ(named_colors::textColor(), catalog->colors["TextColor"]);
    catalog->colors.clear();
    EXPECT_EQ(named_colors::appGreen(), green);
    EXPECT_EQ(named_colors::textGrey(), nullptr) << "its first use came when it was gone";
}

TEST(NamedColors, FallBackToBlueOrNothing) {
    support::installCatalog();
    EXPECT_TRUE(*named_colors::appGreen() == *UIColor::blueColor());
    EXPECT_EQ(named_colors::textColor(), nullptr);
    EXPECT_EQ(named_colors::textGrey(), nullptr);
}
