#include "platform/uikit/table/UITableView.h"

#include "platform/uikit/controllers/UINib.h"
#include "platform/uikit/table/TableGeometry.h"
#include "platform/uikit/table/UITableViewCell.h"

namespace {

template <class View>
void replaceSubview(UIView& table, std::shared_ptr<View>& current, const std::shared_ptr<View>& view) {
    if (current == view) {
        return;
    }
    if (current) {
        current->removeFromSuperview();
    }
    current = view;
    if (current) {
        table.addSubview(current);
    }
    table.setNeedsLayout();
}

} // namespace

UITableView::UITableView(const CGRect& frame) : UIScrollView(frame) {}

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

UITableView::~UITableView() = default;

void UITableView::setDataSource(std::weak_ptr<UITableViewDataSource> dataSource) {
    m_dataSource = std::move(dataSource);
    reloadData();
}

void UITableView::setDelegate(std::weak_ptr<UITableViewDelegate> delegate) {
    m_delegate = std::move(delegate);
    reloadData();
}

void UITableView::setSeparatorStyle(UITableViewCellSeparatorStyle style) {
    m_separatorStyle = style;
    setNeedsDisplay();
}

void UITableView::setTableHeaderView(const std::shared_ptr<UIView>& view) {
    replaceSubview(*this, m_tableHeaderView, view);
}

void UITableView::setTableFooterView(const std::shared_ptr<UIView>& view) {
    replaceSubview(*this, m_tableFooterView, view);
}

void UITableView::reloadData() {
    if (m_geometry) {
        if (const std::optional<Pixels> average = m_geometry->averageHeight()) {
            m_averageRowHeight = pointsOf(*average);
        }
        m_geometry = nullptr;
    }
    m_selected.reset();
    m_touched.reset();
    recycleAll();
    setNeedsLayout();
}

int UITableView::numberOfSections() {
    return geometry()->numberOfSections();
}

int UITableView::numberOfRowsInSection(int section) {
    return geometry()->numberOfRows(section);
}

CGRect UITableView::rectForRowAtIndexPath(NSIndexPath indexPath) {
    const SharedGeometry current = geometry();
    if (!current->hasRow(indexPath)) {
        return {};
    }
    const TableItem row = current->row(indexPath);
    return rectInContent(row.top, row.height);
}

CGRect UITableView::rectForHeaderInSection(int section) {
    const SharedGeometry current = geometry();
    if (section < 0 || section >= current->numberOfSections()) {
        return {};
    }
    const TableItem header = current->header(section);
    return rectInContent(header.top, header.height);
}

std::optional<NSIndexPath> UITableView::indexPathForRowAtPoint(CGPoint point) {
    const Pixels line = pixelUnder(point.y) - topOfSections();
    const std::optional<TableItem> item = geometry()->itemAt(line);
    if (!item || item->kind != TableItem::Kind::row) {
        return std::nullopt;
    }
    return item->indexPath;
}

std::shared_ptr<UITableViewCell> UITableView::cellForRowAtIndexPath(NSIndexPath indexPath) {
    const auto found = m_visible.find(indexPath);
    return found == m_visible.end() ? nullptr : found->second;
}

std::vector<NSIndexPath> UITableView::indexPathsForVisibleRows() {
    std::vector<NSIndexPath> paths;
    for (const auto& [path, cell] : m_visible) {
        paths.push_back(path);
    }
    return paths;
}

std::vector<std::shared_ptr<UITableViewCell>> UITableView::visibleCells() {
    std::vector<std::shared_ptr<UITableViewCell>> cells;
    for (const auto& [path, cell] : m_visible) {
        cells.push_back(cell);
    }
    return cells;
}
