#include "platform/uikit/table/UITableViewHeaderFooterView.h"

UITableViewHeaderFooterView::UITableViewHeaderFooterView(const std::string& reuseIdentifier)
    : m_reuseIdentifier(reuseIdentifier) {}

UITableViewHeaderFooterView::UITableViewHeaderFooterView(const NSCoder& coder)
    : UIView(coder), m_reuseIdentifier(coder.string("reuseIdentifier").value_or("")) {}
