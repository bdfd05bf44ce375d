#pragma once

#include "ui/AppView.h"

#include "platform/runtime/Outlet.h"
#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/table/UITableViewCell.h"

/// One row of the option dropdown, laid out by the nib of the same name and styled by the screen.
class VibeDropdownTblCell : public UITableViewCell {
public:
    using UITableViewCell::UITableViewCell;

    Outlet<UILabel> lblTitle{this, "lblTitle"};
    Outlet<UIImageView> imgSelected{this, "imgSelected"};
    Outlet<AppView> viewMain{this, "viewMain"};
};
