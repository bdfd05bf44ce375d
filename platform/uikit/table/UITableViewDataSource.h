#pragma once

#include "platform/uikit/table/NSIndexPath.h"

#include <memory>

class UITableView;
class UITableViewCell;

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
