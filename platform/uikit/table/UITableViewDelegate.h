#pragma once

#include "platform/foundation/Geometry.h"

#include <compare>
#include <memory>

class UITableView;
class UITableViewCell;
class UIView;

/// A row of a table: its section and its place there, both from 0.
struct NSIndexPath {
    int section = 0;
    int row = 0;

    friend bool operator==(const NSIndexPath&, const NSIndexPath&) = default;
    friend auto operator<=>(const NSIndexPath&, const NSIndexPath&) = default;
};

/// "The row knows": its constraints and texts decide its height.
inline constexpr CGFloat UITableViewAutomaticDimension = -1;

/// What a table shows. Held weakly by the table; asked on the main thread, about rows that are about to be seen.
class UITableViewDataSource {
public:
    virtual ~UITableViewDataSource() = default;

    virtual int numberOfSectionsInTableView(UITableView& /*table*/) { return 1; }    // numberOfSectionsInTableView:
    virtual int tableViewNumberOfRowsInSection(UITableView& table, int section) = 0; // tableView:numberOfRowsInSection:
    /// tableView:cellForRowAtIndexPath: — never null.
    virtual std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                            NSIndexPath indexPath) = 0;
};

/// How tall a table's parts are and what a choice does. Held weakly by the table. The defaults are what a table does
/// whose delegate does not implement the operation.
class UITableViewDelegate {
public:
    virtual ~UITableViewDelegate() = default;

    /// tableView:heightForRowAtIndexPath: — points, or UITableViewAutomaticDimension. Asked once for each row that is
    /// seen; rows not seen yet count with the table's estimate.
    virtual CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath);
    /// tableView:viewForHeaderInSection: — null for none. Asked when the header is about to be seen.
    virtual std::shared_ptr<UIView> tableViewViewForHeaderInSection(UITableView&, int) { return nullptr; }
    /// tableView:heightForHeaderInSection:
    virtual CGFloat tableViewHeightForHeaderInSection(UITableView& table, int section);
    /// tableView:heightForFooterInSection:
    virtual CGFloat tableViewHeightForFooterInSection(UITableView& table, int section);
    /// tableView:didSelectRowAtIndexPath:
    virtual void tableViewDidSelectRowAtIndexPath(UITableView&, NSIndexPath) {}
};
