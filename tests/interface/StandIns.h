#pragma once

#include "platform/runtime/Outlet.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/table/UITableView.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "platform/uikit/table/UITableViewHeaderFooterView.h"

#include <string>
#include <vector>

/// Classes under names that the extension's documents use, which only remember what was done to them.

struct StandInView : UIView {
    using UIView::UIView;
};

struct StandInButton : UIButton {
    using UIButton::UIButton;
};

struct StandInModeCell : UITableViewCell {
    using UITableViewCell::UITableViewCell;
    /// Whether title and corner radius stood when the cell awoke.
    void awakeFromNib() override;

    Outlet<UILabel> lblTitle{this, "lblTitle"};
    Outlet<UIImageView> imgSelection{this, "imgSelection"};
    Outlet<UIView> viewBackground{this, "viewBackground"};
    int awakenings = 0;
    bool connectedWhenAwoken = false;
};

struct StandInHeader : UITableViewHeaderFooterView {
    using UITableViewHeaderFooterView::UITableViewHeaderFooterView;

    Outlet<UILabel> lblHeaderTitle{this, "lblHeaderTitle"};
};

struct StandInMessages : UIViewController {
    using UIViewController::UIViewController;
};

struct StandInScreen : UIViewController, UITableViewDataSource, UITableViewDelegate {
    using UIViewController::UIViewController;

    void btnBack(NSObject*) { sent.emplace_back("back"); }
    void btnLetsPlay(NSObject*) { sent.emplace_back("play"); }
    int tableViewNumberOfRowsInSection(UITableView& /*tableView*/, int /*section*/) override { return 0; }
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& /*tableView*/,
                                                                    NSIndexPath /*indexPath*/) override {
        return nullptr;
    }

    Outlet<UILabel> lblDropDown{this, "lblDropDown"};
    Outlet<NSLayoutConstraint> cnBottomOfLetsPlay{this, "cnBottomOfLetsPlay"};
    std::vector<std::string> sent;
};

void registerStandIns();
