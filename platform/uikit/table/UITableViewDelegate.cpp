#include "platform/uikit/table/UITableViewDelegate.h"

#include "platform/uikit/table/UITableView.h"

CGFloat UITableViewDelegate::tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath) {
    return table.rowHeight();
}

std::shared_ptr<UIView> UITableViewDelegate::tableViewViewForHeaderInSection(UITableView&, int) {
    return nullptr;
}

CGFloat UITableViewDelegate::tableViewHeightForHeaderInSection(UITableView& table, int) {
    return table.sectionHeaderHeight();
}

CGFloat UITableViewDelegate::tableViewHeightForFooterInSection(UITableView& table, int) {
    return table.sectionFooterHeight();
}

void UITableViewDelegate::tableViewDidSelectRowAtIndexPath(UITableView&, NSIndexPath) {}
