// The screen as data source and delegate of its two tables. Questions about contents and sizes take every table but
// the mode table for the dropdown list; a choice takes every table but the dropdown list for the mode table.

#include "game/CategoriesVC.h"

#include "content/DropdownRows.h"
#include "content/ExtensionBundle.h"
#include "host/LaunchLink.h"
#include "ui/Colors.h"
#include "ui/ModeHeaderView.h"
#include "ui/ModeTblCell.h"
#include "ui/VibeDropdownTblCell.h"

#include "platform/foundation/FatalError.h"

#include <cstddef>
#include <limits>
#include <string>

namespace {

constexpr CGFloat headerHeight = 30;
constexpr CGFloat footerHeight = 20;
/// Collapses a header: the platform takes 0 for "the default height".
constexpr CGFloat collapsedHeight = std::numeric_limits<CGFloat>::min();

/// What is below 0 becomes an index far beyond every list.
std::size_t index(int number) {
    return static_cast<std::size_t>(number);
}

// A section or row may be gone: the table learns of other sections a turn later than the screen.

const ModeSection* sectionAt(const std::vector<ModeSection>& sections, int number) {
    return index(number) < sections.size() ? &sections[index(number)] : nullptr;
}

const ModeItem* itemAt(const std::vector<ModeSection>& sections, NSIndexPath path) {
    const ModeSection* section = sectionAt(sections, path.section);
    return section != nullptr && index(path.row) < section->items().size() ? &section->items()[index(path.row)]
                                                                           : nullptr;
}

std::string titleOf(const std::vector<ModeSection>& sections, int number) {
    const ModeSection* section = sectionAt(sections, number);
    return section != nullptr ? section->sectionTitle() : std::string();
}

void styleDropdownCell(VibeDropdownTblCell& cell, const MainCategoryModel& entry) {
    const bool selected = entry.selected;
    cell.lblTitle->setText(entry.title);
    cell.imgSelected->setImage(UIImage::imageNamed(selected ? "tick_selected" : "tick_not_selected"));
    cell.viewMain->setBackgroundColor(selected ? named_colors::appGreen() : colorFromHex("F2F2F6"));
    cell.viewMain->setStrokeColor(selected ? UIColor::whiteColor() : colorFromHex("DDDDDD"));
    cell.viewMain->setStrokeWidth(1);
    cell.viewMain->setEnableShadow(selected);
    cell.lblTitle->setTextColor(selected ? UIColor::whiteColor() : named_colors::textColor());
}

} // namespace

int CategoriesVC::numberOfSectionsInTableView(UITableView& table) {
    return tableView.is(table) ? static_cast<int>(m_sections.size()) : 1;
}

int CategoriesVC::tableViewNumberOfRowsInSection(UITableView& table, int section) {
    if (!tableView.is(table)) {
        return static_cast<int>(m_arrMainCategories.size());
    }
    const ModeSection* shown = sectionAt(m_sections, section);
    return shown != nullptr ? static_cast<int>(shown->items().size()) : 0;
}

std::shared_ptr<UITableViewCell> CategoriesVC::tableViewCellForRowAtIndexPath(UITableView& table,
                                                                              NSIndexPath indexPath) {
    return tableView.is(table) ? modeCell(table, indexPath) : dropdownCell(table, indexPath);
}

std::shared_ptr<UITableViewCell> CategoriesVC::modeCell(UITableView& table, NSIndexPath indexPath) {
    const auto cell = std::dynamic_pointer_cast<ModeTblCell>(
        table.dequeueReusableCellWithIdentifierForIndexPath("ModeTblCell", indexPath));
    const ModeItem* item = itemAt(m_sections, indexPath);
    if (!cell || item == nullptr) {
        return std::make_shared<UITableViewCell>(UITableViewCellStyle::standard, "");
    }
    cell->configure(*item);
    return cell;
}

std::shared_ptr<UITableViewCell> CategoriesVC::dropdownCell(UITableView& table, NSIndexPath indexPath) {
    const auto cell = std::dynamic_pointer_cast<VibeDropdownTblCell>(
        table.dequeueReusableCellWithIdentifierForIndexPath("VibeDropdownTblCell", indexPath));
    if (!cell) {
        fatalError("the nib VibeDropdownTblCell does not hold a VibeDropdownTblCell");
    }
    styleDropdownCell(*cell, *m_arrMainCategories[index(indexPath.row)]);
    return cell;
}

CGFloat CategoriesVC::tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath) {
    return tableView.is(table) ? UITableViewAutomaticDimension : dropdownRowHeight;
}

std::shared_ptr<UIView> CategoriesVC::tableViewViewForHeaderInSection(UITableView& table, int section) {
    const std::string title = tableView.is(table) ? titleOf(m_sections, section) : std::string();
    if (title.empty()) {
        return nullptr;
    }
    const std::shared_ptr<ModeHeaderView> header = loadViewFromNib<ModeHeaderView>("ModeHeaderView");
    header->lblHeaderTitle->setText(title);
    return header;
}

CGFloat CategoriesVC::tableViewHeightForHeaderInSection(UITableView& table, int section) {
    const bool hasHeader = tableView.is(table) && !titleOf(m_sections, section).empty();
    return hasHeader ? headerHeight : collapsedHeight;
}

CGFloat CategoriesVC::tableViewHeightForFooterInSection(UITableView& table, int) {
    return tableView.is(table) ? footerHeight : 0;
}

void CategoriesVC::tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) {
    if (!m_tblDropDown.is(table)) {
        launch(indexPath);
    } else if (offersGameTypes()) {
        chooseGameType(indexPath.row);
    } else {
        chooseGroup(indexPath.row);
    }
}

void CategoriesVC::launch(NSIndexPath indexPath) {
    if (const ModeItem* item = itemAt(m_sections, indexPath)) {
        openCategoryLink(*this, m_currentOption, m_sections[index(indexPath.section)], *item);
    }
}

void CategoriesVC::chooseGroup(int row) {
    m_currentOption = playerGroupOption(row);
    markOnlyRow(row);
    m_tblDropDown->reloadData();
    showTitleOfRow(row);
    showSections(rawValue(m_currentOption));
    setDropdownOpen(false);
}

void CategoriesVC::chooseGameType(int row) {
    m_currentOption = gameTypeOption(row).value_or(m_currentOption);
    markOnlyRow(row);
    showTitleOfRow(row);
    showSections(rawValue(m_currentOption));
    setDropdownOpen(false);
    m_tblDropDown->reloadData();
}

void CategoriesVC::markOnlyRow(int row) {
    for (const std::shared_ptr<MainCategoryModel>& entry : m_arrMainCategories) {
        entry->selected = false;
    }
    if (const std::shared_ptr<MainCategoryModel> entry = dropdownEntry(row)) {
        entry->selected = true;
    }
}

void CategoriesVC::showTitleOfRow(int row) {
    if (const std::shared_ptr<MainCategoryModel> entry = dropdownEntry(row)) {
        lblDropDown->setText(entry->title);
    }
}

/// Null for a row that the list does not have.
std::shared_ptr<MainCategoryModel> CategoriesVC::dropdownEntry(int row) const {
    return index(row) < m_arrMainCategories.size() ? m_arrMainCategories[index(row)] : nullptr;
}
