#include "platform/uikit/controls/UILabel.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"

#include <algorithm>

namespace {

constexpr CGFloat roundingRoom = 0.5; // frames stand on device pixels, text heights do not

} // namespace

std::shared_ptr<const TextLayout> UILabel::textLayoutFitting(CGSize size) const {
    std::shared_ptr<const TextLayout> layout = textLayout(size.width);
    if (!layout || layout->lineCount() <= 1 || layout->size().height <= size.height + roundingRoom) {
        return layout;
    }
    const CGFloat lineHeight = layout->size().height / layout->lineCount();
    TextRequest request = textRequest(size.width);
    request.maximumLines = std::max(1, static_cast<int>((size.height + roundingRoom) / lineHeight));
    return TextLayout::make(request);
}

/// The text stands in the middle of the label's height.
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
