#include "platform/uikit/table/UITableViewCell.h"

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

void UITableViewCell::setHighlighted(bool highlighted) {
    if (m_highlighted != highlighted) {
        m_highlighted = highlighted;
        setNeedsDisplay();
    }
}

void UITableViewCell::setSelected(bool selected) {
    if (m_selected != selected) {
        m_selected = selected;
        setNeedsDisplay();
    }
}

void UITableViewCell::layoutSubviews() {
    UIView::layoutSubviews();
    m_contentView->setFrame({{}, bounds().size});
}
