#include "platform/uikit/table/TableSource.h"

#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/table/UITableView.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "platform/uikit/window/UIScreen.h"

#include <algorithm>
#include <string>

void TableSource::reload() {
    if (m_rows) {
        m_averageHeight = m_rows->averageHeight();
    }
    m_rows = nullptr;
    ++m_reloads;
}

bool TableSource::isAbandoned() const {
    return m_rows && m_rows->numberOfSections() > 0 && m_dataSource.expired();
}

std::shared_ptr<TableRows> TableSource::rows() {
    if (m_rows) {
        return m_rows;
    }
    const std::shared_ptr<TableRows> rows = std::make_shared<TableRows>(estimate());
    if (!m_counting) {
        m_counting = true;
        m_rows = countInto(*rows) ? rows : nullptr;
        m_counting = false;
    }
    return rows;
}

/// False when a callback reloaded the table: it is asked no further, for its sections may be gone.
bool TableSource::countInto(TableRows& rows) {
    const std::shared_ptr<UITableViewDataSource> source = dataSource();
    const std::shared_ptr<UITableViewDelegate> sizes = delegateOrDefaults();
    const int reloads = m_reloads;
    const auto ask = [&](auto question) { return reloads == m_reloads ? question() : 0; };
    const PixelGrid& grid = UIScreen::mainScreen().grid();
    const int sections = source ? source->numberOfSectionsInTableView(m_table) : 0;
    for (int section = 0; section < std::min(sections, TableRows::mostSections); ++section) {
        const CGFloat header = ask([&] { return sizes->tableViewHeightForHeaderInSection(m_table, section); });
        const int count = ask([&] { return source->tableViewNumberOfRowsInSection(m_table, section); });
        const CGFloat footer = ask([&] { return sizes->tableViewHeightForFooterInSection(m_table, section); });
        rows.addSection(grid.nearest(header), count, grid.nearest(footer));
    }
    return reloads == m_reloads;
}

Pixels TableSource::estimate() const {
    const CGFloat set = m_table.estimatedRowHeight() > 0 ? m_table.estimatedRowHeight() : m_table.rowHeight();
    const PixelGrid& grid = UIScreen::mainScreen().grid();
    const Pixels learnt = m_averageHeight.value_or(grid.nearest(UITableView::defaultRowHeight));
    return std::clamp<Pixels>(set > 0 ? grid.nearest(set) : learnt, 1, TableRows::tallestItem);
}

template <class Ask>
auto TableSource::unlessOutdated(Ask ask) -> std::optional<decltype(ask())> {
    const int reloads = m_reloads;
    auto answer = ask();
    return reloads == m_reloads ? std::optional(std::move(answer)) : std::nullopt;
}

std::optional<CGFloat> TableSource::heightOfRow(NSIndexPath path) {
    return unlessOutdated([&] { return delegateOrDefaults()->tableViewHeightForRowAtIndexPath(m_table, path); });
}

std::optional<std::shared_ptr<UIView>> TableSource::viewOf(NSIndexPath path) {
    if (path.row == TableItem::footer) {
        return std::shared_ptr<UIView>();
    }
    if (path.row == TableItem::header) {
        return unlessOutdated(
            [&] { return delegateOrDefaults()->tableViewViewForHeaderInSection(m_table, path.section); });
    }
    const std::shared_ptr<UITableViewDataSource> source = dataSource();
    if (!source) {
        return std::nullopt;
    }
    return unlessOutdated([&]() -> std::shared_ptr<UIView> {
        const std::shared_ptr<UITableViewCell> cell = source->tableViewCellForRowAtIndexPath(m_table, path);
        if (!cell) {
            fatalErrorAt(m_table, "The data source returned no cell for row " + std::to_string(path.row) +
                                      " of section " + std::to_string(path.section));
        }
        return cell;
    });
}

std::shared_ptr<UITableViewDelegate> TableSource::delegateOrDefaults() const {
    static const std::shared_ptr<UITableViewDelegate> defaults = std::make_shared<UITableViewDelegate>();
    const std::shared_ptr<UITableViewDelegate> asked = delegate();
    return asked ? asked : defaults;
}
