#pragma once

#include "content/ModeItem.h"

#include "platform/runtime/Outlet.h"
#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/table/UITableViewCell.h"

/// One row of the mode table, laid out by the nib of the same name. What it shows is wholly set by the last configure.
class ModeTblCell : public UITableViewCell {
public:
    using UITableViewCell::UITableViewCell;

    /// Called each time the row is dequeued.
    void configure(const ModeItem& item);

    Outlet<UIImageView> iconImageView{this, "iconImageView"};
    Outlet<UILabel> lblTitle{this, "lblTitle"};
    Outlet<UILabel> lblDesc{this, "lblDesc"};
    Outlet<UIImageView> imgSelection{this, "imgSelection"};
    Outlet<UIView> viewBackground{this, "viewBackground"};
};
