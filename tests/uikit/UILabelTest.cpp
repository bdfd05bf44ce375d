#include "platform/uikit/UILabel.h"

#include "tests/uikit/Attributes.h"
#include "tests/uikit/ViewFixture.h"

namespace {

class UILabelTest : public support::OnScreen {
protected:
    std::shared_ptr<UILabel> label = std::make_shared<UILabel>();
};

TEST_F(UILabelTest, WithoutTextItWantsNoRoom) {
    EXPECT_EQ(label->intrinsicContentSize(), CGSize{});
    label->setText("");
    EXPECT_EQ(label->intrinsicContentSize(), CGSize{});
    label->setText(std::nullopt);
    EXPECT_EQ(label->text(), std::nullopt);
}

TEST_F(UILabelTest, ItsSizeIsThatOfItsTextOnWholePixels) {
    label->setText("Dares");
    const CGSize size = label->intrinsicContentSize();
    EXPECT_GE(size.width, label->textLayout(std::nullopt)->size().width);
    EXPECT_EQ(size.width * 2, static_cast<int>(size.width * 2));
    EXPECT_NEAR(size.height, label->font()->lineHeight(), 0.5);
    label->setFont(UIFont::systemFontOfSize(34));
    EXPECT_GT(label->intrinsicContentSize().width, 1.5 * size.width);
}

TEST_F(UILabelTest, OneLineStaysOneAndSeveralWrapUpToTheirLimit) {
    label->setText("one two three four five six seven eight nine ten");
    const CGFloat line = label->intrinsicContentSize().height;
    EXPECT_EQ(label->intrinsicContentSizeForWidth(60).height, line);
    label->setNumberOfLines(0);
    EXPECT_GT(label->intrinsicContentSizeForWidth(60).height, 3 * line);
    EXPECT_LE(label->intrinsicContentSizeForWidth(60).width, 60);
    label->setNumberOfLines(2);
    EXPECT_NEAR(label->intrinsicContentSizeForWidth(60).height, 2 * line, 1);
}

TEST_F(UILabelTest, LineSpacingComesWithAttributedTextAndGoesWithPlainText) {
    label->setNumberOfLines(0);
    label->setText("one\ntwo");
    const CGFloat plain = label->intrinsicContentSize().height;
    NSMutableAttributedString spaced("one\ntwo");
    spaced.addAttributeValueRange(NSParagraphStyleAttributeName, {.lineSpacing = 10}, NSMakeRange(0, 7));
    label->setAttributedText(spaced);
    EXPECT_EQ(label->text(), "one\ntwo");
    EXPECT_NEAR(label->intrinsicContentSize().height, plain + 10, 0.5);
    label->setText("one\ntwo");
    EXPECT_FALSE(label->attributedText());
    EXPECT_EQ(label->intrinsicContentSize().height, plain);
}

TEST_F(UILabelTest, NoColourMeansThePlatformsLabelColour) {
    label->setTextColor(UIColor::blueColor());
    label->setTextColor(nullptr);
    EXPECT_EQ(*label->textColor(), *UIColor::systemColorNamed("labelColor"));
}

TEST_F(UILabelTest, TextStandsInTheMiddleOfATallerLabel) {
    label->setText("Truths");
    const CGSize size = label->intrinsicContentSize();
    const CGFloat baseline = *label->firstBaseline(size);
    EXPECT_EQ(*label->firstBaseline({size.width, size.height + 20}), baseline + 10);
}

TEST_F(UILabelTest, AFileSaysWhatItShowsAndHow) {
    support::Attributes file;
    file.strings = {{"text", "Hi"}, {"textAlignment", "center"}, {"lineBreakMode", "wordWrap"}};
    file.numbers["numberOfLines"] = 0;
    file.objects = {{"fontDescription", UIFont::boldSystemFontOfSize(21)}, {"textColor", nullptr}};
    label = std::make_shared<UILabel>(static_cast<const NSCoder&>(file));
    EXPECT_EQ(label->text(), "Hi");
    EXPECT_EQ(label->textAlignment(), NSTextAlignment::center);
    EXPECT_EQ(label->lineBreakMode(), NSLineBreakMode::byWordWrapping);
    EXPECT_EQ(label->numberOfLines(), 0);
    EXPECT_EQ(label->font()->pointSize(), 21);
    EXPECT_FALSE(label->isUserInteractionEnabled());
    EXPECT_TRUE(file.reports.empty());
}

} // namespace
