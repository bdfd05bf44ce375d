#pragma once

#include "platform/foundation/Result.h"
#include "platform/runtime/Outlet.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/table/UITableView.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "tests/support/InterfaceBundle.h"

#include <memory>
#include <string>
#include <vector>

// Classes under names that the extension's documents use, which only remember what was done to them.

struct StandInModeCell : UITableViewCell {
    using UITableViewCell::UITableViewCell;
    void awakeFromNib() override;

    Outlet<UILabel> lblTitle{this, "lblTitle"};
    Outlet<UIView> viewBackground{this, "viewBackground"};
    int awakenings = 0;
    bool readyWhenAwoken = false; // title and corner radius stood
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

/// A bundle whose documents can name the stand-ins.
class InterfaceFixture : public support::InterfaceBundle {
protected:
    using Objects = std::vector<std::shared_ptr<NSObject>>;

    InterfaceFixture();

    [[nodiscard]] Result<Objects> instantiate(const std::string& nib,
                                              const std::shared_ptr<NSObject>& owner = nullptr) const;
    /// The same of a nib whose <objects> hold this.
    [[nodiscard]] Result<Objects> instantiateObjects(const std::string& objects,
                                                     const std::shared_ptr<NSObject>& owner = nullptr) const;
    /// The first object of a nib that must be sound, typed.
    template <class T>
    [[nodiscard]] std::shared_ptr<T> first(const std::string& objects) const {
        const Result<Objects> made = instantiateObjects(objects);
        EXPECT_TRUE(made) << made.failure().what;
        auto typed = made ? std::dynamic_pointer_cast<T>(made.value().at(0)) : nullptr;
        EXPECT_TRUE(typed) << "the nib's first object is of another class";
        return typed;
    }
};
