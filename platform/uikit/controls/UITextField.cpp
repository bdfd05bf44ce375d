#include "platform/uikit/controls/UITextField.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"
#include "platform/graphics/TextLayout.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/window/UIScreen.h"
#include "platform/uikit/window/UITouch.h"

namespace {

constexpr CGFloat defaultFontSize = 17;
constexpr CGFloat padding = 6; // above and below the line

} // namespace

UITextField::UITextField(const CGRect& frame) : UIControl(frame), m_font(UIFont::systemFontOfSize(defaultFontSize)) {}

UITextField::UITextField(const NSCoder& coder)
    : UIControl(coder), m_text(coder.string("text")), m_placeholder(coder.string("placeholder").value_or("")),
      m_font(coder.objectOf<UIFont>("fontDescription", "a font").value_or(nullptr)),
      m_alignment(decodedTextAlignment(coder)) {
    if (!m_font) {
        m_font = UIFont::systemFontOfSize(defaultFontSize);
    }
}

void UITextField::setText(const std::optional<std::string>& text) {
    if (m_text != text) {
        m_text = text;
        invalidateIntrinsicContentSize();
        setNeedsDisplay();
    }
}

void UITextField::setPlaceholder(const std::string& placeholder) {
    if (m_placeholder != placeholder) {
        m_placeholder = placeholder;
        invalidateIntrinsicContentSize();
        setNeedsDisplay();
    }
}

bool UITextField::replaceCharactersInRange(NSRange range, const std::string& replacement) {
    const std::shared_ptr<UITextField> self = strong(this);
    const std::shared_ptr<UITextFieldDelegate> delegate = m_delegate.lock();
    if (delegate && !delegate->textFieldShouldChangeCharactersInRangeReplacementString(*this, range, replacement)) {
        return false;
    }
    setText(stringByReplacingCharactersInRange(m_text.value_or(""), range, replacement));
    sendActionsForControlEvents(UIControlEventEditingChanged);
    return true;
}

bool UITextField::insertText(const std::string& text) {
    return replaceCharactersInRange(NSMakeRange(utf16Length(m_text.value_or("")), 0), text);
}

void UITextField::pressReturn() {
    const std::shared_ptr<UITextField> self = strong(this);
    if (const std::shared_ptr<UITextFieldDelegate> delegate = m_delegate.lock()) {
        (void)delegate->textFieldShouldReturn(*this); // a line break has no place in a field, whatever the answer
    }
}

void UITextField::touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) {
    const std::shared_ptr<UITextField> self = strong(this);
    const bool isInside = !touches.empty() && pointInsideWithEvent((*touches.begin())->locationInView(this), event);
    UIControl::touchesEndedWithEvent(touches, event);
    if (isInside && window() != nullptr) {
        becomeFirstResponder();
    }
}

/// The text, or the placeholder while there is none, on one line.
std::shared_ptr<const TextLayout> UITextField::line(std::optional<CGFloat> width) const {
    return TextLayout::make({.text = isEmpty() ? m_placeholder : *m_text,
                             .font = m_font,
                             .alignment = m_alignment,
                             .maximumLines = 1,
                             .width = width});
}

CGSize UITextField::intrinsicContentSize() const {
    const CGSize text = line(std::nullopt)->size();
    return UIScreen::mainScreen().grid().holding(CGSize{text.width, text.height + 2 * padding});
}

/// In the middle of the height; the placeholder in its paler colour.
void UITextField::drawRect(const CGRect& rect) {
    UIView::drawRect(rect);
    const DrawingContext* context = DrawingContext::current();
    if (context == nullptr) {
        return;
    }
    const std::shared_ptr<const TextLayout> layout = line(bounds().size.width);
    const auto color = UIColor::systemColorNamed(isEmpty() ? "placeholderTextColor" : "labelColor");
    const CGFloat top = bounds().midY() - layout->size().height / 2;
    context->canvas().drawText(*layout, {bounds().minX(), top}, color->resolved(context->style()));
}
