#pragma once

#include "platform/foundation/NSAttributedString.h"
#include "platform/graphics/TextLayout.h"
#include "platform/graphics/UIFont.h"
#include "platform/uikit/view/UIView.h"

/// The text alignment that an interface file gives a label or a field; natural when it gives none.
[[nodiscard]] NSTextAlignment decodedTextAlignment(const NSCoder& coder);

/// A text of one or several lines. Its natural size comes from the text; a text that wraps grows with a smaller width.
class UILabel : public UIView {
public:
    explicit UILabel(const CGRect& frame = {});
    explicit UILabel(const NSCoder& coder);

    /// Absent when the label has no text.
    [[nodiscard]] const std::optional<std::string>& text() const { return m_text; }
    /// Replaces attributed text and with it its paragraph style.
    void setText(const std::optional<std::string>& text);
    [[nodiscard]] const std::optional<NSMutableAttributedString>& attributedText() const { return m_attributed; }
    void setAttributedText(const std::optional<NSMutableAttributedString>& text);
    [[nodiscard]] std::shared_ptr<UIFont> font() const { return m_font; }
    /// In a label that an interface file has follow the reader's text size, the font of a text style keeps doing so.
    void setFont(const std::shared_ptr<UIFont>& font);
    /// Never null: no colour gives the platform's label colour.
    [[nodiscard]] std::shared_ptr<UIColor> textColor() const { return m_textColor; }
    void setTextColor(const std::shared_ptr<UIColor>& color);
    [[nodiscard]] NSTextAlignment textAlignment() const { return m_alignment; }
    void setTextAlignment(NSTextAlignment alignment);
    /// 0 = as many as the text needs.
    [[nodiscard]] int numberOfLines() const { return m_numberOfLines; }
    void setNumberOfLines(int lines);

    [[nodiscard]] CGSize intrinsicContentSize() const override;
    [[nodiscard]] CGSize intrinsicContentSizeForWidth(CGFloat width) const override;
    [[nodiscard]] std::optional<CGFloat> firstBaseline(CGSize size) const override;
    [[nodiscard]] std::optional<CGFloat> lastBaseline(CGSize size) const override;
    /// The text laid out for a width (absent = unbounded). Null without text.
    [[nodiscard]] std::shared_ptr<const TextLayout> textLayout(std::optional<CGFloat> width) const;
    /// The text as it is drawn in a box of that size: smaller, if the label may shrink its one line, or with fewer
    /// lines where its height does not hold all. Null without text.
    [[nodiscard]] std::shared_ptr<const TextLayout> textLayoutFitting(CGSize size) const;
    void drawRect(const CGRect& rect) override;
    void contentSizeCategoryDidChange() override;

private:
    void contentChanged();
    [[nodiscard]] CGFloat scaleFitting(CGSize size) const;
    [[nodiscard]] TextRequest textRequest(std::optional<CGFloat> width) const;
    [[nodiscard]] CGFloat topOfText(const TextLayout& layout, CGSize size) const;

    std::optional<std::string> m_text;
    std::optional<NSMutableAttributedString> m_attributed;
    std::shared_ptr<UIFont> m_font;
    std::shared_ptr<UIColor> m_textColor;
    NSTextAlignment m_alignment = NSTextAlignment::natural;
    NSLineBreakMode m_lineBreakMode = NSLineBreakMode::byTruncatingTail;
    int m_numberOfLines = 1;
    CGFloat m_minimumScaleFactor = 1; // of the font, in a label of one line; 1 = never shrinks
    bool m_adjustsFontForContentSizeCategory = false;
};
