#include "game/CategoriesVC.h"

#include "content/DropdownRows.h"

#include "platform/dispatch/Dispatch.h"
#include "platform/foundation/Text.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINib.h"
#include "platform/uikit/window/UIScreen.h"

#include <utility>

namespace {

constexpr CGFloat dropdownPadding = 17;
constexpr CGFloat letsPlayBottomOnFlatScreens = 20;

/// Screens with a home button, whose bottom button needs a distance of its own. Read once per process.
bool isFlatScreen() {
    static const CGFloat height = UIScreen::mainScreen().bounds().size.height;
    return height == 667 || height == 736;
}

} // namespace

void CategoriesVC::viewDidLoad() {
    UIViewController::viewDidLoad();
    setupScreen();
}

void CategoriesVC::viewWillAppear(bool animated) {
    UIViewController::viewWillAppear(animated);
    if (const std::shared_ptr<UINavigationController> navigation = navigationController()) {
        navigation->setNavigationBarHidden(true);
    }
}

void CategoriesVC::setTblDropDown(const std::shared_ptr<UITableView>& table) {
    m_tblDropDown = table;
    if (table) {
        table->registerNibForCellReuseIdentifier(
            UINib::nibWithNibNameBundle("VibeDropdownTblCell", NSBundle::mainBundle()), "VibeDropdownTblCell");
        table->setShowsVerticalScrollIndicator(false);
    }
}

void CategoriesVC::setupScreen() {
    m_currentOption = CurrentOption::Adult_18_Plus;
    loadAllModeSections(strong(this));
    setupDropdownRows();
    markCurrentRow();
    heightOfTblView->setConstant(dropdownRowHeight * static_cast<CGFloat>(m_arrMainCategories.size()) +
                                 dropdownPadding);
    setupTableView();
    if (isFlatScreen()) {
        cnBottomOfLetsPlay->setConstant(letsPlayBottomOnFlatScreens);
    }
    m_tblDropDown->setTableFooterView(nullptr);
    m_tblDropDown->setTableHeaderView(nullptr);
    m_tblDropDown->reloadData();
}

void CategoriesVC::setupDropdownRows() {
    for (const std::string& title : offersGameTypes() ? gameTypeTitles() : playerGroupTitles()) {
        m_arrMainCategories.push_back(std::make_shared<MainCategoryModel>(title));
    }
}

void CategoriesVC::markCurrentRow() {
    const std::string current =
        lowercased(offersGameTypes() ? rawValue(m_selectedMoreGameType) : rawValue(m_currentOption));
    for (const std::shared_ptr<MainCategoryModel>& entry : m_arrMainCategories) {
        if (lowercased(entry->title) == current) {
            entry->selected = true;
            lblDropDown->setText(entry->title);
            m_currentOption = currentOptionFromRawValue(entry->title).value_or(m_currentOption);
        }
    }
}

void CategoriesVC::setupTableView() {
    tableView->setDelegate(strong(this));
    tableView->setDataSource(strong(this));
    tableView->setSeparatorStyle(UITableViewCellSeparatorStyle::none);
    tableView->setContentInset({.top = 10, .left = 0, .bottom = 80, .right = 0});
    tableView->registerNibForCellReuseIdentifier(UINib::nibWithNibNameBundle("ModeTblCell", NSBundle::mainBundle()),
                                                 "ModeTblCell");
    tableView->setShowsVerticalScrollIndicator(false);
}

void CategoriesVC::applyContentMap(ContentMap contentMap) {
    m_arrAllCategories = std::move(contentMap);
    showSections(rawValue(m_currentOption));
    setDropdownOpen(false);
}

void CategoriesVC::showSections(const std::string& key) {
    const auto found = m_arrAllCategories.find(key);
    m_sections = found != m_arrAllCategories.end() ? found->second : std::vector<ModeSection>();
    dispatch_async(dispatch_get_main_queue(), [self = strong(this)] { self->tableView->reloadData(); });
}

void CategoriesVC::setDropdownOpen(bool open) {
    viewDropDownButton->setStrokeColor(open ? UIColor::clearColor() : UIColor::whiteColor());
    viewDropDownButton->setStrokeWidth(open ? 0 : 1);
    imgDropDown->setImage(UIImage::imageNamed(open ? "drowdown_up" : "drowdown_down"));
    viewDropDown->setHidden(!open);
}

void CategoriesVC::btnDropdownWithSender(NSObject*) {
    viewDropDown->setHidden(!viewDropDown->isHidden());
    const bool hidden = viewDropDown->isHidden();
    viewDropDownButton->setEnableShadow(hidden);
    setDropdownOpen(!hidden);
}

void CategoriesVC::btnBackWithSender(NSObject*) {
    if (const std::shared_ptr<UINavigationController> navigation = navigationController()) {
        navigation->popViewControllerAnimated(true);
    }
}

void CategoriesVC::btnOptionsClickedWithSender(NSObject*) {}

void CategoriesVC::btnLetsPlayWithSender(NSObject*) {}
