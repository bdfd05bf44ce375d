#include "platform/graphics/TextLayout.h"

#include <gtest/gtest.h>

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

TEST(UIFontTest, MetricsAreThoseOfInter) {
    const auto font = UIFont::systemFontOfSize(100);
    EXPECT_NEAR(font->ascender(), 96.875, 0.01);
    EXPECT_NEAR(font->descender(), -24.12, 0.05);
}

TEST(UIFontTest, TextStylesHaveTheirSizeAndWeight) {
    EXPECT_EQ(*UIFont::preferredFontForTextStyle("UICTFontTextStyleHeadline"), UIFont(17, UIFontWeight::semibold));
    EXPECT_EQ(UIFont::preferredFontForTextStyle("UICTFontTextStyleShout"), nullptr);
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
}

TEST(TextLayoutTest, TextFitsTheWidthThatWasMeasuredForIt) {
    for (std::size_t length = 1; length <= sentence.size(); ++length) {
        const std::string text = sentence.substr(0, length);
        EXPECT_EQ(TextLayout::make(body(text, widthOf(text), 1))->size().width, widthOf(text)) << text;
    }
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

TEST(TextLayoutTest, EmojiAndOtherScriptsKeepTheHeightOfTheLine) {
    const CGFloat height = TextLayout::make(body("Truth"))->size().height;
    for (const char* text : {"Truth 😀", "👩‍👩‍👧‍👦", "Правда", "Ấ", "שלום"}) {
        EXPECT_DOUBLE_EQ(TextLayout::make(body(text))->size().height, height) << text;
    }
    EXPECT_LT(widthOf("😀"), 30);
    EXPECT_LT(widthOf("👩‍👩‍👧‍👦"), 30);
}

TEST(TextLayoutTest, CombiningMarksTakeNoWidthAndTallStacksGetRoom) {
    EXPECT_NEAR(widthOf("e\u0301"), widthOf("é"), 0.01);
    EXPECT_GE(TextLayout::make(body("e" + repeated("\u0301", 60)))->size().height, lineHeight());
}

TEST(TextLayoutTest, BrokenBytesAndZerosAreShownAndCutNothing) {
    const CGFloat sign = widthOf("\uFFFD");
    EXPECT_NEAR(widthOf("a\xFFz"), widthOf("a\uFFFDz"), 0.01);
    EXPECT_NEAR(widthOf(std::string("\0", 1)), sign, 0.01);
    EXPECT_GT(widthOf(std::string("a\0zzzzzzzz", 10)), widthOf("zzzzzzzz"));
}

TEST(TextLayoutTest, UnusableWidthsCountAsUnbounded) {
    const CGFloat width = widthOf(sentence);
    for (const CGFloat unusable : {0.0, -5.0, std::nan(""), HUGE_VAL, 1e300}) {
        EXPECT_EQ(TextLayout::make(body(sentence, unusable))->size().width, width);
    }
}

/// Laid out whole, the long word alone would take minutes.
TEST(TextLayoutTest, LongTextsAreBrokenIntoAllTheirLines) {
    for (const std::string unit : {"word like ", "xxxxxxxxxx", "שלום עולם ", "emoji 😀 "}) {
        const std::string text = repeated(unit, 20'000);
        const auto all = TextLayout::make(body(text, 300));
        EXPECT_GT(all->lineCount(), 300) << unit;
        EXPECT_LE(all->size().width, 300) << unit;
        const auto few = TextLayout::make(body(repeated(unit, 100'000), 300, 3));
        EXPECT_EQ(few->lineCount(), 3) << unit;
    }
}

TEST(TextLayoutTest, PiecesOfALongTextBreakAsTheWholeWould) {
    std::string one;
    for (int i = 0; i < 40; ++i) {
        one += sentence + " " + std::to_string(i * 7919) + " ";
    }
    const int lines = TextLayout::make(body(one, 300))->lineCount();
    one += "\n\n";
    EXPECT_EQ(TextLayout::make(body(one + one + one, 300))->lineCount(), 3 * lines + 3 + 1);
}

} // namespace
