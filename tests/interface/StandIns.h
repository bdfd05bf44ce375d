#pragma once

#include "platform/runtime/Outlet.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITableViewCell.h"
#include "platform/uikit/UITableViewHeaderFooterView.h"
#include "platform/uikit/UIViewController.h"

#include <string>
#include <vector>

/// Classes under the names that the extension's documents use, with the same outlets and actions, which only remember
/// what was done to them.

struct StandInView : UIView {
    explicit StandInView(const NSCoder& coder) : UIView(coder) {}
};

struct StandInButton : UIButton {
    explicit StandInButton(const NSCoder& coder) : UIButton(coder) {}
};

struct StandInModeCell : UITableViewCell {
    explicit StandInModeCell(const NSCoder& coder) : UITableViewCell(coder) {}
    /// Whether title and corner radius stood when the cell awoke.
    void awakeFromNib() override;

    Outlet<UIImageView> iconImageView{"iconImageView"};
    Outlet<UILabel> lblTitle{"lblTitle"};
    Outlet<UILabel> lblDesc{"lblDesc"};
    Outlet<UIImageView> imgSelection{"imgSelection"};
    Outlet<UIView> viewBackground{"viewBackground"};
    int awakenings = 0;
    bool connectedWhenAwoken = false;
};

struct StandInVibeCell : UITableViewCell {
    explicit StandInVibeCell(const NSCoder& coder) : UITableViewCell(coder) {}

    Outlet<UILabel> lblTitle{"lblTitle"};
    Outlet<UIImageView> imgSelected{"imgSelected"};
    Outlet<StandInView> viewMain{"viewMain"};
};

struct StandInHeader : UITableViewHeaderFooterView {
    explicit StandInHeader(const NSCoder& coder) : UITableViewHeaderFooterView(coder) {}

    Outlet<UILabel> lblHeaderTitle{"lblHeaderTitle"};
};

struct StandInMessages : UIViewController {
    explicit StandInMessages(const NSCoder& coder) : UIViewController(coder) {}
};

struct StandInScreen : UIViewController, UITableViewDataSource, UITableViewDelegate {
    explicit StandInScreen(const NSCoder& coder) : UIViewController(coder) {}

    void btnDropdown(NSObject*) { sent.emplace_back("dropdown"); }
    void btnBack(NSObject*) { sent.emplace_back("back"); }
    void btnLetsPlay(NSObject*) { sent.emplace_back("play"); }
    int tableViewNumberOfRowsInSection(UITableView& /*tableView*/, int /*section*/) override { return 0; }
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& /*tableView*/,
                                                                    NSIndexPath /*indexPath*/) override {
        return nullptr;
    }

    Outlet<UITableView> tableView{"tableView"};
    Outlet<UITableView> tblDropDown{"tblDropDown"};
    Outlet<UIView> viewDropDown{"viewDropDown"};
    Outlet<StandInView> viewDropDownButton{"viewDropDownButton"};
    Outlet<UILabel> lblDropDown{"lblDropDown"};
    Outlet<UIImageView> imgDropDown{"imgDropDown"};
    Outlet<NSLayoutConstraint> cnBottomOfLetsPlay{"cnBottomOfLetsPlay"};
    Outlet<NSLayoutConstraint> heightOfTblView{"heightOfTblView"};
    std::vector<std::string> sent;
};

void registerStandIns();
