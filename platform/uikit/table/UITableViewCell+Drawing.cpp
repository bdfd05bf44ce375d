#include "platform/uikit/table/UITableViewCell.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"

void UITableViewCell::drawRect(const CGRect& rect) {
    UIView::drawRect(rect);
    const DrawingContext* context = DrawingContext::current();
    const bool marked = m_selectionStyle != UITableViewCellSelectionStyle::none && (m_highlighted || m_selected);
    if (context != nullptr && marked) {
        context->canvas().fillRect(bounds(), UIColor::systemColorNamed("systemGray4Color")->resolved(context->style()));
    }
}
