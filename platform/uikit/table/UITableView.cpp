#include "platform/uikit/table/UITableView.h"

#include "platform/uikit/table/UITableViewCell.h"
#include "platform/uikit/window/UIScreen.h"
#include "platform/uikit/window/UITouch.h"

#include <cmath>
#include <utility>

// The heights that a delegate leaves to its table.

CGFloat UITableViewDelegate::tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath) {
    return table.rowHeight();
}

CGFloat UITableViewDelegate::tableViewHeightForHeaderInSection(UITableView& table, int) {
    return table.sectionHeaderHeight();
}

CGFloat UITableViewDelegate::tableViewHeightForFooterInSection(UITableView& table, int) {
    return table.sectionFooterHeight();
}

UITableView::UITableView(const NSCoder& coder) : UIScrollView(coder) {
    using Separator = UITableViewCellSeparatorStyle;
    m_separatorStyle = coder
                           .choice<Separator>("separatorStyle", {{"none", Separator::none},
                                                                 {"default", Separator::singleLine},
                                                                 {"singleLine", Separator::singleLine}})
                           .value_or(Separator::singleLine);
    m_rowHeight = coder.number("rowHeight").value_or(UITableViewAutomaticDimension);
    m_estimatedRowHeight = coder.number("estimatedRowHeight").value_or(UITableViewAutomaticDimension);
    m_sectionHeaderHeight = coder.number("sectionHeaderHeight").value_or(UITableViewAutomaticDimension);
    m_sectionFooterHeight = coder.number("sectionFooterHeight").value_or(UITableViewAutomaticDimension);
}

void UITableView::setDataSource(std::weak_ptr<UITableViewDataSource> dataSource) {
    m_source.setDataSource(std::move(dataSource));
    reloadData();
}

void UITableView::setDelegate(std::weak_ptr<UITableViewDelegate> delegate) {
    m_source.setDelegate(std::move(delegate));
    reloadData();
}

/// Gives the cells back in reverse, so that the rows get those that showed them before: less of them changes.
void UITableView::reloadData() {
    m_source.reload();
    m_selected.reset();
    m_touched.reset();
    while (!m_views.empty()) {
        recycle(m_views.extract(std::prev(m_views.end())).mapped());
    }
    setNeedsLayout();
}

void UITableView::contentSizeCategoryDidChange() {
    m_reusable.clear();
    m_measuredWidth = neverMeasured;
    setNeedsLayout();
}

// Questions.

std::shared_ptr<TableRows> UITableView::rows() {
    if (m_source.isAbandoned()) {
        reloadData();
    }
    return m_source.rows();
}

CGRect UITableView::rectForRowAtIndexPath(NSIndexPath indexPath) {
    const std::optional<TableItem> row = rows()->item(indexPath);
    return row && TableItem::isRow(indexPath) ? rectOf(*row) : CGRect{};
}

CGRect UITableView::rectOf(const TableItem& item) const {
    const CGFloat width = bounds().size.width;
    const PixelGrid& grid = UIScreen::mainScreen().grid();
    return {{0, grid.points(item.top)}, {width > 0 && std::isfinite(width) ? width : 0, grid.points(item.height)}};
}

std::optional<NSIndexPath> UITableView::indexPathForRowAtPoint(CGPoint point) {
    const std::optional<TableItem> item = rows()->itemAt(UIScreen::mainScreen().grid().under(point.y));
    return item && TableItem::isRow(item->path) ? std::optional(item->path) : std::nullopt;
}

std::shared_ptr<UITableViewCell> UITableView::cellForRowAtIndexPath(NSIndexPath indexPath) {
    const auto found = m_views.find(indexPath);
    return found != m_views.end() && TableItem::isRow(indexPath)
               ? std::static_pointer_cast<UITableViewCell>(found->second)
               : nullptr;
}

std::vector<NSIndexPath> UITableView::indexPathsForVisibleRows() {
    std::vector<NSIndexPath> paths;
    for (const auto& [path, view] : m_views) {
        if (TableItem::isRow(path)) {
            paths.push_back(path);
        }
    }
    return paths;
}

std::vector<std::shared_ptr<UITableViewCell>> UITableView::visibleCells() {
    std::vector<std::shared_ptr<UITableViewCell>> cells;
    for (const NSIndexPath& path : indexPathsForVisibleRows()) {
        cells.push_back(cellForRowAtIndexPath(path));
    }
    return cells;
}

// Touches.

void UITableView::touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) {
    UIScrollView::touchesBeganWithEvent(touches, event);
    if (const std::shared_ptr<UITouch> touch = draggingTouchIn(touches)) {
        m_touched = indexPathForRowAtPoint(touch->locationInView(this));
        markRows();
    }
}

void UITableView::touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) {
    UIScrollView::touchesMovedWithEvent(touches, event);
    if (isDragging()) {
        m_touched.reset();
        markRows();
    }
}

void UITableView::touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) {
    const std::shared_ptr<UITableView> self = strong(this);
    const std::shared_ptr<UITouch> touch = draggingTouchIn(touches);
    UIScrollView::touchesEndedWithEvent(touches, event);
    if (!touch) {
        return;
    }
    const std::optional<NSIndexPath> touched = std::exchange(m_touched, std::nullopt);
    const bool isChosen = touched && indexPathForRowAtPoint(touch->locationInView(this)) == touched;
    m_selected = isChosen ? touched : m_selected;
    markRows();
    // The delegate comes last: it may reload the table or drop it.
    if (const std::shared_ptr<UITableViewDelegate> asked = isChosen ? delegate() : nullptr) {
        asked->tableViewDidSelectRowAtIndexPath(*this, *touched);
    }
}

void UITableView::touchesCancelledWithEvent(const TouchSet& touches, UIEvent* event) {
    if (draggingTouchIn(touches)) {
        m_touched.reset();
        markRows();
    }
    UIScrollView::touchesCancelledWithEvent(touches, event);
}

void UITableView::markRows() const {
    for (const auto& [path, view] : m_views) {
        if (TableItem::isRow(path)) {
            mark(static_cast<UITableViewCell&>(*view), path);
        }
    }
}

void UITableView::mark(UITableViewCell& cell, NSIndexPath path) const {
    cell.setHighlighted(m_touched == path);
    cell.setSelected(m_selected == path);
}
