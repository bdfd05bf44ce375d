#include "platform/uikit/controls/UITextField.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"
#include "platform/graphics/TextLayout.h"

/// The text, or the placeholder in its paler colour while there is none, on one line in the middle of the height.
void UITextField::drawRect(const CGRect& rect) {
    UIView::drawRect(rect);
    const DrawingContext* context = DrawingContext::current();
    if (context == nullptr) {
        return;
    }
    const bool empty = m_text.value_or("").empty();
    const auto layout = TextLayout::make({.text = empty ? m_placeholder : *m_text,
                                          .font = m_font,
                                          .alignment = m_alignment,
                                          .maximumLines = 1,
                                          .width = bounds().size.width});
    const auto color = UIColor::systemColorNamed(empty ? "placeholderTextColor" : "labelColor");
    const CGFloat top = bounds().midY() - layout->size().height / 2;
    context->canvas().drawText(*layout, {bounds().minX(), top}, color->resolved(context->style()));
}
