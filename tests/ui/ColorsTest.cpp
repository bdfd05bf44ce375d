#include "tests/ui/Catalog.h"
#include "ui/HexColor.h"
#include "ui/NamedColors.h"

#include <gtest/gtest.h>

TEST(HexColor, ReadsSixDigitsAndNothingElse) {
    const RGBA green = support::rgb(77, 162, 137);
    const RGBA gray = UIColor::grayColor()->components();
    const RGBA black = support::rgb(0, 0, 0);
    const struct {
        const char* text;
        RGBA color;
    } cases[] = {
        {"4DA289", green},
        {"#4da289", green},
        {" 4DA289\n", green},
        {"\u00A0\t#4Da289\r\n\u2003", green},
        {"F2F2F6", support::rgb(242, 242, 246)},
        {"", gray},
        {"#", gray},
        {"FFF", gray},
        {"#4DA2891", gray},
        {"##4DA289", gray}, // only one mark is removed
        {"éééééé", black},  // six characters, twelve bytes
        {"12\u0301G456", support::rgb(0, 0, 0x12)},
        {"e\u0301e\u0301e\u0301", gray},    // three characters
        {"👩‍👩‍👧GGGGG", black}, // a family is one character
        {"GHIJKL", black},
        {"12G456", support::rgb(0, 0, 0x12)},
        {"0x12AB", black},
        {"-12345", black},
        {"ßßß", black}, // becomes SSSSSS
    };
    for (const auto& [text, color] : cases) {
        EXPECT_EQ(colorFromHex(text)->components(), color) << '"' << text << '"';
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
