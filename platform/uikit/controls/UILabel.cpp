#include "platform/uikit/controls/UILabel.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"
#include "platform/uikit/window/UIScreen.h"

#include <algorithm>
#include <utility>

namespace {

constexpr CGFloat defaultFontSize = 17;
constexpr CGFloat roundingRoom = 0.5; // frames stand on device pixels, text heights do not

std::shared_ptr<UIFont> orDefault(const std::shared_ptr<UIFont>& font) {
    return font ? font : UIFont::systemFontOfSize(defaultFontSize);
}

std::shared_ptr<UIColor> orDefault(const std::shared_ptr<UIColor>& color) {
    return color ? color : UIColor::systemColorNamed("labelColor");
}

} // namespace

NSTextAlignment decodedTextAlignment(const NSCoder& coder) {
    return coder
        .choice<NSTextAlignment>("textAlignment", {{"natural", NSTextAlignment::natural},
                                                   {"left", NSTextAlignment::left},
                                                   {"center", NSTextAlignment::center},
                                                   {"right", NSTextAlignment::right},
                                                   {"justified", NSTextAlignment::justified}})
        .value_or(NSTextAlignment::natural);
}

UILabel::UILabel(const CGRect& frame)
    : UIView(frame), m_font(orDefault(std::shared_ptr<UIFont>())), m_textColor(orDefault(std::shared_ptr<UIColor>())) {
    setUserInteractionEnabled(false);
}

UILabel::UILabel(const NSCoder& coder)
    : UIView(coder), m_text(coder.string("text")),
      m_font(orDefault(coder.objectOf<UIFont>("fontDescription", "a font").value_or(nullptr))),
      m_textColor(orDefault(coder.objectOf<UIColor>("textColor", "a colour").value_or(nullptr))),
      m_alignment(decodedTextAlignment(coder)) {
    setUserInteractionEnabled(coder.boolean("userInteractionEnabled").value_or(false));
    m_lineBreakMode = // the only place for an ellipsis is the end
        coder
            .choice<NSLineBreakMode>("lineBreakMode", {{"wordWrap", NSLineBreakMode::byWordWrapping},
                                                       {"characterWrap", NSLineBreakMode::byCharWrapping},
                                                       {"clip", NSLineBreakMode::byClipping},
                                                       {"headTruncation", NSLineBreakMode::byTruncatingTail},
                                                       {"tailTruncation", NSLineBreakMode::byTruncatingTail},
                                                       {"middleTruncation", NSLineBreakMode::byTruncatingTail}})
            .value_or(m_lineBreakMode);
    m_numberOfLines = std::max(0, static_cast<int>(coder.number("numberOfLines").value_or(m_numberOfLines)));
    if (coder.boolean("adjustsFontSizeToFit").value_or(false)) {
        m_minimumScaleFactor = std::clamp(coder.number("minimumScaleFactor").value_or(0), 0.0, 1.0);
    }
    m_adjustsFontForContentSizeCategory = coder.boolean("adjustsFontForContentSizeCategory").value_or(false);
    contentSizeCategoryDidChange();
}

void UILabel::setText(const std::optional<std::string>& text) {
    if (m_text != text || m_attributed) {
        m_text = text;
        m_attributed.reset();
        contentChanged();
    }
}

void UILabel::setAttributedText(const std::optional<NSMutableAttributedString>& text) {
    if (m_attributed == text && (text || !m_text)) {
        return;
    }
    m_attributed = text;
    m_text.reset();
    if (text) {
        m_text = text->string();
    }
    contentChanged();
}

void UILabel::setFont(const std::shared_ptr<UIFont>& font) {
    const std::shared_ptr<UIFont> before = std::exchange(m_font, orDefault(font));
    if (!(*m_font == *before)) {
        contentChanged();
    }
}

void UILabel::setTextColor(const std::shared_ptr<UIColor>& color) {
    const std::shared_ptr<UIColor> wanted = orDefault(color);
    if (!(*m_textColor == *wanted)) {
        m_textColor = wanted;
        setNeedsDisplay();
    }
}

void UILabel::setTextAlignment(NSTextAlignment alignment) {
    if (m_alignment != alignment) {
        m_alignment = alignment;
        setNeedsDisplay();
    }
}

void UILabel::setNumberOfLines(int lines) {
    if (m_numberOfLines != lines) {
        m_numberOfLines = std::max(0, lines);
        contentChanged();
    }
}

void UILabel::contentChanged() {
    invalidateIntrinsicContentSize();
    setNeedsDisplay();
}

void UILabel::contentSizeCategoryDidChange() {
    if (m_adjustsFontForContentSizeCategory && !m_font->textStyle().empty()) {
        setFont(UIFont::preferredFontForTextStyle(m_font->textStyle(), UIScreen::mainScreen().contentSizeCategory()));
    }
}

// Measuring.

CGSize UILabel::intrinsicContentSize() const {
    const std::shared_ptr<const TextLayout> layout = textLayout(std::nullopt);
    return layout ? UIScreen::mainScreen().grid().holding(layout->size()) : CGSize{};
}

/// Laid out for that width alone, as it is going to be drawn.
CGSize UILabel::intrinsicContentSizeForWidth(CGFloat width) const {
    const std::shared_ptr<const TextLayout> layout = textLayout(width);
    return layout ? UIScreen::mainScreen().grid().holding(layout->size()) : CGSize{};
}

/// The text stands in the middle of the label's height.
CGFloat UILabel::topOfText(const TextLayout& layout, CGSize size) const {
    return (size.height - layout.size().height) / 2;
}

std::optional<CGFloat> UILabel::firstBaseline(CGSize size) const {
    const std::shared_ptr<const TextLayout> layout = textLayout(size.width);
    return layout ? std::optional(topOfText(*layout, size) + layout->firstBaseline()) : std::nullopt;
}

std::optional<CGFloat> UILabel::lastBaseline(CGSize size) const {
    const std::shared_ptr<const TextLayout> layout = textLayout(size.width);
    return layout ? std::optional(topOfText(*layout, size) + layout->lastBaseline()) : std::nullopt;
}

TextRequest UILabel::textRequest(std::optional<CGFloat> width) const {
    TextRequest request{.text = *m_text,
                        .font = m_font,
                        .alignment = m_alignment,
                        .lineBreakMode = m_lineBreakMode,
                        .maximumLines = m_numberOfLines,
                        .width = width};
    const std::optional<NSParagraphStyle> style = m_attributed ? m_attributed->paragraphStyleAt(0) : std::nullopt;
    if (style) {
        request.alignment = style->alignment;
        request.lineSpacing = style->lineSpacing;
    }
    const UIUserInterfaceLayoutDirection direction = UIScreen::mainScreen().userInterfaceLayoutDirection();
    if (request.alignment == NSTextAlignment::natural && direction == UIUserInterfaceLayoutDirection::rightToLeft) {
        request.alignment = NSTextAlignment::right;
    }
    return request;
}

std::shared_ptr<const TextLayout> UILabel::textLayout(std::optional<CGFloat> width) const {
    return !m_text || m_text->empty() ? nullptr : TextLayout::make(textRequest(width));
}

// Drawing.

/// How much smaller the font must be for the whole line, which grows with it, to have room.
CGFloat UILabel::scaleFitting(CGSize size) const {
    if (m_minimumScaleFactor >= 1 || m_numberOfLines != 1) {
        return 1;
    }
    const CGSize natural = textLayout(std::nullopt)->size();
    const CGFloat fitting = std::min(size.width / natural.width, (size.height + roundingRoom) / natural.height);
    return std::clamp(fitting, m_minimumScaleFactor, 1.0);
}

std::shared_ptr<const TextLayout> UILabel::textLayoutFitting(CGSize size) const {
    std::shared_ptr<const TextLayout> layout = textLayout(size.width);
    if (const CGFloat scale = layout ? scaleFitting(size) : 1; scale < 1) {
        TextRequest request = textRequest(size.width);
        request.font = std::make_shared<UIFont>(m_font->pointSize() * scale, m_font->weight(), m_font->slant());
        return TextLayout::make(request);
    }
    if (!layout || layout->lineCount() <= 1 || layout->size().height <= size.height + roundingRoom) {
        return layout;
    }
    const CGFloat lineHeight = layout->size().height / layout->lineCount();
    TextRequest request = textRequest(size.width);
    request.maximumLines = std::max(1, static_cast<int>((size.height + roundingRoom) / lineHeight));
    return TextLayout::make(request);
}

void UILabel::drawRect(const CGRect& rect) {
    UIView::drawRect(rect);
    const DrawingContext* context = DrawingContext::current();
    const std::shared_ptr<const TextLayout> layout = textLayoutFitting(bounds().size);
    if (context == nullptr || !layout) {
        return;
    }
    const CGPoint origin{bounds().minX(), bounds().minY() + topOfText(*layout, bounds().size)};
    context->canvas().drawText(*layout, origin, textColor()->resolved(context->style()));
}
