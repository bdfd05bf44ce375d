#pragma once

#include "content/CurrentOption.h"
#include "content/LoadPass.h"
#include "content/MainCategoryModel.h"
#include "content/MoreGameTypes.h"
#include "ui/AppView.h"

#include "platform/runtime/Outlet.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/controls/UIImageView.h"
#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/table/UITableView.h"

#include <memory>
#include <string>
#include <vector>

/// The category screen: a dropdown of player groups over a table of game modes. A tap on a mode opens the launch link.
/// The storyboard makes it; the extension controller owns it as its one child. It starts one load pass, is empty until
/// that hands over the content, and reads no file afterwards. Main thread only.
class CategoriesVC : public UIViewController,
                     public UITableViewDataSource,
                     public UITableViewDelegate,
                     public ContentMapReceiver {
public:
    using UIViewController::UIViewController;

    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;

    // Actions of the storyboard.
    void btnDropdownWithSender(NSObject* sender);       // btnDropdownWithSender:
    void btnBackWithSender(NSObject* sender);           // btnBackWithSender:
    void btnOptionsClickedWithSender(NSObject* sender); // btnOptionsClickedWithSender:
    void btnLetsPlayWithSender(NSObject* sender);       // btnLetsPlayWithSender:

    // What the screen shows.
    [[nodiscard]] const std::vector<ModeSection>& sections() const { return m_sections; }
    [[nodiscard]] CurrentOption currentOption() const { return m_currentOption; }
    [[nodiscard]] const std::vector<std::shared_ptr<MainCategoryModel>>& arrMainCategories() const {
        return m_arrMainCategories;
    }
    [[nodiscard]] const ContentMap& arrAllCategories() const { return m_arrAllCategories; }
    [[nodiscard]] MoreGameTypes selectedMoreGameType() const { return m_selectedMoreGameType; }
    /// To be set before the view loads; other than None it puts the game types in place of the player groups.
    void setSelectedMoreGameType(MoreGameTypes gameType) { m_selectedMoreGameType = gameType; }

    void applyContentMap(ContentMap contentMap) override;
    /// Selects the sections of a content key, none when the map has no entry; the table is reloaded on a later turn of
    /// the main queue.
    void showSections(const std::string& key);
    /// Shows or hides the dropdown and restyles its box, except for the box's shadow.
    void setDropdownOpen(bool open);

    int numberOfSectionsInTableView(UITableView& table) override;
    int tableViewNumberOfRowsInSection(UITableView& table, int section) override;
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
    CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
    std::shared_ptr<UIView> tableViewViewForHeaderInSection(UITableView& table, int section) override;
    CGFloat tableViewHeightForHeaderInSection(UITableView& table, int section) override;
    CGFloat tableViewHeightForFooterInSection(UITableView& table, int section) override;
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;

    Outlet<UITableView> tableView{this, "tableView"};
    [[nodiscard]] const Outlet<UITableView>& tblDropDown() const { return m_tblDropDown; }
    /// Also registers the dropdown's row nib, whenever the outlet is assigned.
    void setTblDropDown(const std::shared_ptr<UITableView>& table);
    Outlet<UIView> viewDropDown{this, "viewDropDown"};
    Outlet<AppView> viewDropDownButton{this, "viewDropDownButton"};
    Outlet<UILabel> lblDropDown{this, "lblDropDown"};
    Outlet<UIImageView> imgDropDown{this, "imgDropDown"};
    Outlet<NSLayoutConstraint> cnBottomOfLetsPlay{this, "cnBottomOfLetsPlay"};
    Outlet<NSLayoutConstraint> heightOfTblView{this, "heightOfTblView"};

    // Connected by some scenes, never read.
    Outlet<AppView> viewOptions1{this, "viewOptions1"};
    Outlet<AppView> viewOptions2{this, "viewOptions2"};
    Outlet<AppView> viewOptions3{this, "viewOptions3"};
    Outlet<AppView> viewOptions4{this, "viewOptions4"};
    Outlet<UIImageView> imgSelect1{this, "imgSelect1"};
    Outlet<UIImageView> imgSelect2{this, "imgSelect2"};
    Outlet<UIImageView> imgSelect3{this, "imgSelect3"};
    Outlet<UIImageView> imgSelect4{this, "imgSelect4"};
    Outlet<UILabel> lblFriends{this, "lblFriends"};
    Outlet<UILabel> lblFamily{this, "lblFamily"};
    Outlet<UILabel> lblCouple{this, "lblCouple"};
    Outlet<UILabel> lblRandom{this, "lblRandom"};

private:
    void setupScreen();
    void setupTableView();
    void setupDropdownRows();
    void markCurrentRow();

    std::shared_ptr<UITableViewCell> modeCell(UITableView& table, NSIndexPath indexPath);
    std::shared_ptr<UITableViewCell> dropdownCell(UITableView& table, NSIndexPath indexPath);
    void launch(NSIndexPath indexPath);
    void chooseGroup(int row);
    void chooseGameType(int row);
    void markOnlyRow(int row);
    void showTitleOfRow(int row);
    [[nodiscard]] bool offersGameTypes() const { return m_selectedMoreGameType != MoreGameTypes::None; }
    [[nodiscard]] std::shared_ptr<MainCategoryModel> dropdownEntry(int row) const;

    static constexpr CGFloat dropdownRowHeight = 69;

    Outlet<UITableView> m_tblDropDown{this, "tblDropDown"};
    std::vector<ModeSection> m_sections; // shares its texts with m_arrAllCategories
    CurrentOption m_currentOption = CurrentOption::Adult_18_Plus;
    std::vector<std::shared_ptr<MainCategoryModel>> m_arrMainCategories;
    ContentMap m_arrAllCategories;
    MoreGameTypes m_selectedMoreGameType = MoreGameTypes::None;
};

/// Makes the screen known to interface files by name. Called once before the first file is read.
void registerGameClasses();
