#include "platform/uikit/controls/UILabel.h"

#include "tests/uikit/ViewFixture.h"

namespace {

class UILabelTest : public support::OnScreen {
protected:
    [[nodiscard]] CGFloat heightAt(CGFloat width) const { return label->intrinsicContentSizeForWidth(width).height; }

    std::shared_ptr<UILabel> label = std::make_shared<UILabel>();
};

TEST_F(UILabelTest, ItsSizeIsThatOfItsTextOnWholePixels) {
    label->setText("");
    EXPECT_EQ(label->intrinsicContentSize(), CGSize{});
    label->setText("Dares");
    const CGSize size = label->intrinsicContentSize();
    EXPECT_GE(size.width, label->textLayout(std::nullopt)->size().width);
    EXPECT_EQ(size.width * 2, static_cast<int>(size.width * 2));
    EXPECT_NEAR(size.height, label->font()->ascender() - label->font()->descender(), 0.5);
    EXPECT_EQ(*label->firstBaseline({size.width, size.height + 20}), *label->firstBaseline(size) + 10)
        << "the text stands in the middle of a taller label";
    label->setFont(UIFont::systemFontOfSize(34));
    EXPECT_GT(label->intrinsicContentSize().width, 1.5 * size.width);
}

TEST_F(UILabelTest, OneLineStaysOneAndSeveralWrapUpToTheirLimit) {
    label->setText("one two three four five six seven eight nine ten");
    const CGFloat line = label->intrinsicContentSize().height;
    EXPECT_EQ(heightAt(60), line);
    label->setNumberOfLines(0);
    EXPECT_GT(heightAt(60), 3 * line);
    EXPECT_LE(label->intrinsicContentSizeForWidth(60).width, 60);
    const auto fitting = label->textLayoutFitting({60, 2.2 * line});
    EXPECT_EQ(fitting->lineCount(), 2) << "what is drawn fits the height";
    label->setNumberOfLines(2);
    EXPECT_NEAR(heightAt(60), 2 * line, 1);
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

} // namespace
