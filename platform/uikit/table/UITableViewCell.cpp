#include "platform/uikit/table/UITableViewCell.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"

UITableViewCell::UITableViewCell(UITableViewCellStyle, const std::string& reuseIdentifier)
    : m_reuseIdentifier(reuseIdentifier) {
    addContentView();
}

UITableViewCell::UITableViewCell(const NSCoder& coder)
    : UIView(coder), m_reuseIdentifier(coder.string("reuseIdentifier").value_or("")) {
    using Style = UITableViewCellSelectionStyle;
    m_selectionStyle = coder
                           .choice<Style>("selectionStyle", {{"none", Style::none},
                                                             {"default", Style::standard},
                                                             {"blue", Style::standard},
                                                             {"gray", Style::standard}})
                           .value_or(Style::standard);
    addContentView();
}

void UITableViewCell::addContentView() {
    m_contentView = std::make_shared<UIView>(CGRect{{}, bounds().size});
    addSubview(m_contentView);
}

void UITableViewCell::setMark(bool& mark, bool isSet) {
    if (mark != isSet) {
        mark = isSet;
        setNeedsDisplay();
    }
}

void UITableViewCell::layoutSubviews() {
    UIView::layoutSubviews();
    m_contentView->setFrame({{}, bounds().size});
}

void UITableViewCell::drawRect(const CGRect& rect) {
    UIView::drawRect(rect);
    const DrawingContext* context = DrawingContext::current();
    const bool marked = m_selectionStyle != UITableViewCellSelectionStyle::none && (m_highlighted || m_selected);
    if (context != nullptr && marked) {
        context->canvas().fillRect(bounds(), UIColor::systemColorNamed("systemGray4Color")->resolved(context->style()));
    }
}
