#pragma once

#include "platform/uikit/table/NSIndexPath.h"

#include "platform/foundation/Geometry.h"

#include <memory>

class UITableView;
class UIView;

/// "The row knows": its constraints and texts decide its height.
inline constexpr CGFloat UITableViewAutomaticDimension = -1;

/// How tall a table's parts are and what a choice does. Held weakly by the table. The defaults are what a table does
/// whose delegate does not implement the operation.
class UITableViewDelegate {
public:
    virtual ~UITableViewDelegate() = default;

    /// tableView:heightForRowAtIndexPath: — points, or UITableViewAutomaticDimension. Asked once for each row that is
    /// seen; rows not seen yet count with the table's estimate.
    virtual CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath);
    /// tableView:viewForHeaderInSection: — null for none. Asked when the header is about to be seen.
    virtual std::shared_ptr<UIView> tableViewViewForHeaderInSection(UITableView& table, int section);
    virtual CGFloat tableViewHeightForHeaderInSection(UITableView& table,
                                                      int section); // tableView:heightForHeaderInSection:
    virtual CGFloat tableViewHeightForFooterInSection(UITableView& table,
                                                      int section); // tableView:heightForFooterInSection:
    virtual void tableViewDidSelectRowAtIndexPath(UITableView& table,
                                                  NSIndexPath indexPath); // tableView:didSelectRowAtIndexPath:
};
