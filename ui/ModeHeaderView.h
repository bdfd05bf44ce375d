#pragma once

#include "platform/runtime/Outlet.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/table/UITableViewHeaderFooterView.h"

/// The header of one section of the mode table, made from the nib of the same name for each header shown.
class ModeHeaderView : public UITableViewHeaderFooterView {
public:
    using UITableViewHeaderFooterView::UITableViewHeaderFooterView;

    Outlet<UILabel> lblHeaderTitle{this, "lblHeaderTitle"};
};
