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
    EXPECT_EQ(label->textLayoutFitting({60, 2.2 * line})->lineCount(), 2) << "what is drawn fits the height";
    NSMutableAttributedString spaced("one\ntwo");
    spaced.addAttributeValueRange(NSParagraphStyleAttributeName, {.lineSpacing = 10}, NSMakeRange(0, 7));
    label->setAttributedText(spaced);
    EXPECT_NEAR(heightAt(60), 2 * line + 10, 1);
    label->setText("one\ntwo");
    EXPECT_NEAR(heightAt(60), 2 * line, 1) << "a plain text drops the spacing";
    label->setText("one two three four five six seven eight nine ten");
    label->setNumberOfLines(2);
    EXPECT_NEAR(heightAt(60), 2 * line, 1);
}

} // namespace
