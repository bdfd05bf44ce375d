#include "platform/uikit/table/UITableViewDelegate.h"

#include "platform/uikit/table/UITableView.h"

CGFloat UITableViewDelegate::tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath) {
    return table.rowHeight();
}

CGFloat UITableViewDelegate::tableViewHeightForHeaderInSection(UITableView& table, int) {
    return table.sectionHeaderHeight();
}

CGFloat UITableViewDelegate::tableViewHeightForFooterInSection(UITableView& table, int) {
    return table.sectionFooterHeight();
}
