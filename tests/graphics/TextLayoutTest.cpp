#include "platform/graphics/TextLines.h"

#include <gtest/gtest.h>
#include <pango/pango.h>

#include <cmath>
#include <string>

namespace {

const std::string sentence = "Would you rather kiss a frog or eat a very hot chili pepper";

CGFloat lineHeight() {
    const auto font = UIFont::systemFontOfSize(17);
    return font->ascender() - font->descender();
}

TextRequest body(const std::string& text, std::optional<CGFloat> width = std::nullopt, int lines = 0) {
    return {.text = text, .font = UIFont::systemFontOfSize(17), .maximumLines = lines, .width = width};
}

CGFloat widthOf(const std::string& text) {
    return TextLayout::make(body(text))->size().width;
}

std::string repeated(const std::string& text, std::size_t bytes) {
    std::string result;
    while (result.size() < bytes) {
        result += text;
    }
    return result;
}

TEST(UIFontTest, HasTheMetricsOfInterAndTheSizesOfTextStyles) {
    const auto font = UIFont::systemFontOfSize(100);
    EXPECT_NEAR(font->ascender(), 96.875, 0.01);
    EXPECT_NEAR(font->descender(), -24.12, 0.05);
    EXPECT_EQ(*UIFont::preferredFontForTextStyle("UICTFontTextStyleHeadline"), UIFont(17, UIFontWeight::semibold));
    EXPECT_EQ(UIFont::preferredFontForTextStyle("UICTFontTextStyleShout"), nullptr);
    EXPECT_EQ(*UIFont::preferredFontForTextStyle("UICTFontTextStyleSubhead", UIContentSizeCategory::accessibilityLarge),
              UIFont(30, UIFontWeight::regular));
    TextRequest bold = body(sentence);
    bold.font = UIFont::boldSystemFontOfSize(17);
    EXPECT_GT(TextLayout::make(bold)->size().width, widthOf(sentence));
}

TEST(TextLayoutTest, BreaksAtWordsToStayWithinTheWidth) {
    const auto layout = TextLayout::make(body(sentence, 300));
    EXPECT_EQ(layout->lineCount(), 2);
    EXPECT_LE(layout->size().width, 300);
    EXPECT_DOUBLE_EQ(layout->size().height, 2 * lineHeight());
    EXPECT_EQ(TextLayout::make(body(""))->size(), (CGSize{0, lineHeight()}));
    EXPECT_EQ(TextLayout::make(body(sentence, 150))->lineCount(), 4);
    for (std::size_t length = 1; length <= sentence.size(); ++length) { // a text fits the width measured for it
        const std::string text = sentence.substr(0, length);
        EXPECT_EQ(TextLayout::make(body(text, widthOf(text), 1))->size().width, widthOf(text)) << text;
    }
}

TEST(TextLayoutTest, AlignmentPlacesTextInItsWidth) {
    const auto restBefore = [](const std::string& text, NSTextAlignment alignment) {
        const auto layout = TextLayout::make({.text = text, .alignment = alignment, .width = 300});
        return layout->lines().lines.front().x / (300 - layout->size().width);
    };
    EXPECT_EQ(restBefore("Truth", NSTextAlignment::left), 0);
    EXPECT_EQ(restBefore("Truth", NSTextAlignment::center), 0.5);
    EXPECT_EQ(restBefore("Truth", NSTextAlignment::right), 1);
    EXPECT_EQ(restBefore("Truth", NSTextAlignment::natural), 0);
    EXPECT_EQ(restBefore("שלום", NSTextAlignment::natural), 1);
}

TEST(TextLayoutTest, LineSpacingStandsBetweenLines) {
    TextRequest request = body(sentence, 300);
    const auto plain = TextLayout::make(request);
    request.lineSpacing = 6;
    const auto spaced = TextLayout::make(request);
    EXPECT_DOUBLE_EQ(spaced->size().height, plain->size().height + 6);
    EXPECT_DOUBLE_EQ(spaced->firstBaseline(), plain->firstBaseline());
    EXPECT_DOUBLE_EQ(spaced->lastBaseline(), plain->lastBaseline() + 6);
}

TEST(TextLayoutTest, ALineLimitShortensTheLastLine) {
    const auto layout = TextLayout::make(body(sentence, 150, 2));
    EXPECT_EQ(layout->lineCount(), 2);
    EXPECT_LE(layout->size().width, 150);
    EXPECT_EQ(TextLayout::make(body(sentence, 300, 2))->size(), TextLayout::make(body(sentence, 300))->size());
    EXPECT_NEAR(TextLayout::make(body("a\nb", std::nullopt, 1))->size().width, widthOf("a…"), 0.01);
}

TEST(TextLayoutTest, WithoutTruncationTheRestIsLeftOut) {
    TextRequest request = body(sentence, 165, 1);
    request.lineBreakMode = NSLineBreakMode::byWordWrapping;
    const auto words = TextLayout::make(request);
    EXPECT_NEAR(words->size().width, widthOf("Would you rather"), 0.01);
    request.lineBreakMode = NSLineBreakMode::byCharWrapping;
    EXPECT_GT(TextLayout::make(request)->size().width, words->size().width);
    request.lineBreakMode = NSLineBreakMode::byClipping;
    EXPECT_EQ(TextLayout::make(request)->size().width, 165);
}

TEST(TextLayoutTest, EmojiAndAccentsKeepTheHeightOfTheLine) {
    for (const char* text : {"Truth 😀", "👩‍👩‍👧‍👦", "Правда", "Ấ", "e\u0301\u0301\u0301"}) {
        EXPECT_DOUBLE_EQ(TextLayout::make(body(text))->size().height, lineHeight()) << text;
    }
    EXPECT_LT(widthOf("😀"), 30);
    EXPECT_LT(widthOf("👩‍👩‍👧‍👦"), 30);
    EXPECT_NEAR(widthOf("e\u0301"), widthOf("é"), 0.01);
}

TEST(TextLayoutTest, EveryScriptIsShownInLettersThatStandWithinTheirLine) {
    for (const char* text : {"שלום", "لعبة المساء", "ที่ให้ทุกคน", "हल्की-फुल्की", "இனிய தொடக்கம்", "ქართული", "abc क 😀"}) {
        const auto layout = TextLayout::make(body(text));
        const TextLayout::Lines& lines = layout->lines();
        PangoRectangle ink;
        pango_layout_line_get_extents(lines.lines.front().glyphs, &ink, nullptr);
        EXPECT_EQ(pango_layout_get_unknown_glyphs_count(lines.owners.front().get()), 0) << text;
        EXPECT_LE(PANGO_ASCENT(ink), lines.ascent * PANGO_SCALE) << text;
        EXPECT_LE(PANGO_DESCENT(ink), lines.descent * PANGO_SCALE) << text;
        EXPECT_GE(layout->size().height, lineHeight()) << text;
        EXPECT_LT(layout->size().height, 1.5 * lineHeight()) << text;
    }
    EXPECT_NEAR(widthOf("क Truth") - widthOf("क"), widthOf(" Truth"), 0.5) << "in the same letters as elsewhere";
}

TEST(TextLayoutTest, BrokenBytesAndZerosAreShownAndUnusableWidthsCountAsUnbounded) {
    EXPECT_NEAR(widthOf("a\xFFz"), widthOf("a\uFFFDz"), 0.01);
    EXPECT_NEAR(widthOf(std::string("\0", 1)), widthOf("\uFFFD"), 0.01);
    EXPECT_GT(widthOf(std::string("a\0zzzzzzzz", 10)), widthOf("zzzzzzzz"));
    for (const CGFloat unusable : {0.0, -5.0, std::nan(""), HUGE_VAL, 1e300}) {
        EXPECT_EQ(TextLayout::make(body(sentence, unusable))->size().width, widthOf(sentence));
    }
}

/// Laid out whole, the long word alone would take minutes.
TEST(TextLayoutTest, LongTextsAreBrokenIntoAllTheirLines) {
    for (const std::string unit : {"word like ", "xxxxxxxxxx", "שלום עולם ", "emoji 😀 "}) {
        const auto all = TextLayout::make(body(repeated(unit, 20'000), 300));
        EXPECT_GT(all->lineCount(), 300) << unit;
        EXPECT_LE(all->size().width, 300) << unit;
        for (const int limit : {1, 3}) {
            EXPECT_EQ(TextLayout::make(body(repeated(unit, 1'000'000), 300, limit))->lineCount(), limit) << unit;
        }
    }
}

TEST(TextLayoutTest, ALineOfMoreThanFourKilobytesIsBrokenOrShortened) {
    TextRequest request = body(repeated("word ", 10'000));
    EXPECT_EQ(TextLayout::make(request)->lineCount(), 3);
    for (const auto mode : {NSLineBreakMode::byWordWrapping, NSLineBreakMode::byTruncatingTail}) {
        request.lineBreakMode = mode;
        request.maximumLines = 1;
        EXPECT_EQ(TextLayout::make(request)->lineCount(), 1);
    }
    EXPECT_GT(TextLayout::make(request)->size().width, widthOf(request.text.substr(0, 4'096))) << "by the ellipsis";
}

TEST(TextLayoutTest, PiecesOfALongTextBreakAsTheWholeWould) {
    std::string one;
    for (int i = 0; i < 40; ++i) {
        one += sentence + " " + std::to_string(i * 7919) + " ";
    }
    const int lines = TextLayout::make(body(one, 300))->lineCount();
    one += "\n\n";
    EXPECT_EQ(TextLayout::make(body(one + one + one, 300))->lineCount(), 3 * lines + 3 + 1);
    const auto hebrew = TextLayout::make(body("שלום " + one, 300)); // a paragraph has the direction of its first word
    EXPECT_TRUE(hebrew->lines().lines[static_cast<std::size_t>(lines) / 2].rightToLeft);
    const auto english = TextLayout::make(body("Hello " + repeated("שלום ", 2'000), 300));
    EXPECT_FALSE(english->lines().lines.back().rightToLeft);
}

} // namespace
