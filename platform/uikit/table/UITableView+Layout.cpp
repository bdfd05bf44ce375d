#include "platform/uikit/table/UITableView.h"

#include "platform/uikit/table/TableGeometry.h"
#include "platform/uikit/table/UITableViewCell.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr CGFloat defaultRowHeight = 44;
/// No screen is taller; a table that a wrong document makes taller shows the beginning only.
constexpr Pixels tallestPart = 16'384;
/// Rows without height never fill a screen: so many are asked for their height in one layout, then the next goes on.
constexpr int mostMeasuredAtOnce = 2'000;

bool isRow(const TableItem& item) {
    return item.kind == TableItem::Kind::row;
}

UITableViewDelegate& unlessAbsent(const std::shared_ptr<UITableViewDelegate>& delegate) {
    static UITableViewDelegate defaults;
    return delegate ? *delegate : defaults;
}

} // namespace

/// What one layout is about, in pixels from the top of the first section. While rows are measured the part moves with
/// what stands on screen.
struct UITableView::VisiblePart {
    Pixels top = 0;
    Pixels bottom = 0;
    Pixels fixed = 0; ///< a line between two items that keeps its place on screen; rows above it grow upwards
    int asksLeft = mostMeasuredAtOnce;

    [[nodiscard]] bool shows(const TableItem& item) const { return item.bottom() > top && item.top < bottom; }
    void move(Pixels distance) {
        top += distance;
        bottom += distance;
    }
};

struct UITableView::Placed {
    std::shared_ptr<UIView> view;
    CGRect frame;
};

UITableView::SharedGeometry UITableView::geometry() {
    if (m_geometry && m_dataSource.expired() && m_geometry->numberOfSections() > 0) {
        reloadData(); // whom it asked is gone
    }
    if (!m_geometry) {
        m_geometry = makeGeometry();
    }
    return m_geometry;
}

UITableView::SharedGeometry UITableView::makeGeometry() {
    const Pixels estimated = std::max<Pixels>(pixelsNearest(estimate()), 1);
    m_geometry = std::make_shared<TableGeometry>(estimated); // empty, for questions that the callbacks ask
    m_geometry->finish();
    const SharedGeometry made = std::make_shared<TableGeometry>(estimated);
    if (const std::shared_ptr<UITableViewDataSource> source = dataSource()) {
        const std::shared_ptr<UITableViewDelegate> delegate = this->delegate();
        UITableViewDelegate& sizes = unlessAbsent(delegate);
        const int sections = std::min(source->numberOfSectionsInTableView(*this), TableGeometry::mostSections);
        for (int section = 0; section < sections; ++section) {
            const Pixels header = pixelsNearest(sizes.tableViewHeightForHeaderInSection(*this, section));
            const int rows = source->tableViewNumberOfRowsInSection(*this, section);
            made->addSection(header, rows, pixelsNearest(sizes.tableViewHeightForFooterInSection(*this, section)));
        }
    }
    made->finish();
    m_measuredWidth = bounds().size.width;
    return made;
}

CGFloat UITableView::estimate() const {
    if (m_estimatedRowHeight > 0) {
        return m_estimatedRowHeight;
    }
    return m_rowHeight > 0 ? m_rowHeight : m_averageRowHeight.value_or(defaultRowHeight);
}

void UITableView::layoutSubviews() {
    const std::shared_ptr<UITableView> self = strong(this); // a callback may drop the screen
    UIView::layoutSubviews(); // not the scroll view's: how far the content reaches is only known below
    if (m_layingOut) {
        return;
    }
    m_layingOut = true;
    const bool upToDate = layoutRows() || layoutRows(); // once more when a callback reloaded the table
    m_layingOut = false;
    if (!upToDate) {
        setNeedsLayout();
    }
}

bool UITableView::layoutRows() {
    const SharedGeometry current = geometry();
    VisiblePart part = visiblePart(*current);
    recycleOutside(*current, part);
    do {
        if (!measureBelow(current, part) || !measureAbove(current, part)) {
            return false;
        }
    } while (!settle(*current, part));
    recycleOutside(*current, part);
    return show(current, part);
}

UITableView::VisiblePart UITableView::visiblePart(TableGeometry& geometry) {
    VisiblePart part;
    part.top = pixelPlace(contentOffset().y) - topOfSections();
    part.bottom = part.top + std::clamp<Pixels>(pixelsToHold(bounds().size.height), 0, tallestPart);
    if (m_measuredWidth != bounds().size.width) {
        m_measuredWidth = bounds().size.width;
        keepTopRow(geometry, part);
    } else {
        part.fixed = fixedLine(geometry, part);
    }
    return part;
}

/// Forgets the heights that belong to another width. What is at the top edge stays where it is.
void UITableView::keepTopRow(TableGeometry& geometry, VisiblePart& part) {
    const std::optional<TableItem> before = geometry.itemAt(part.top);
    geometry.forgetHeights();
    if (!before) {
        part.fixed = fixedLine(geometry, part);
        return;
    }
    part.fixed = geometry.now(*before).top;
    part.move(part.fixed - before->top);
}

/// The top of the first row that was seen before and still is; after a leap to the end the end, so that it is reached;
/// else the top of whatever is at the top edge.
Pixels UITableView::fixedLine(const TableGeometry& geometry, const VisiblePart& part) const {
    for (const auto& [path, cell] : m_visible) {
        const TableItem row = geometry.row(path);
        if (geometry.isHeightKnown(path) && part.shows(row)) {
            return row.top;
        }
    }
    const Pixels end = geometry.height();
    if (part.top > 0 && part.bottom >= end && geometry.averageHeight()) {
        return end;
    }
    const std::optional<TableItem> item = geometry.itemAt(std::clamp<Pixels>(part.top, 0, end));
    return item ? item->top : end;
}

bool UITableView::measureBelow(const SharedGeometry& geometry, VisiblePart& part) {
    Pixels line = part.fixed;
    while (line < part.bottom) {
        const std::optional<TableItem> item = geometry->itemAt(line);
        if (!item) {
            break;
        }
        line = item->bottom();
        if (isRow(*item) && !geometry->isHeightKnown(item->indexPath) && part.asksLeft-- > 0) {
            const std::optional<Pixels> height = measure(geometry, item->indexPath);
            if (!height) {
                return false;
            }
            line += geometry->setHeight(item->indexPath, *height);
        }
    }
    return true;
}

bool UITableView::measureAbove(const SharedGeometry& geometry, VisiblePart& part) {
    Pixels line = part.fixed;
    while (line > part.top) {
        const std::optional<TableItem> item = geometry->itemAt(line - 1);
        if (!item) {
            break;
        }
        line = item->top;
        if (isRow(*item) && !geometry->isHeightKnown(item->indexPath) && part.asksLeft-- > 0) {
            const std::optional<Pixels> height = measure(geometry, item->indexPath);
            if (!height) {
                return false;
            }
            const Pixels growth = geometry->setHeight(item->indexPath, *height);
            part.fixed += growth;
            part.move(growth);
        }
    }
    return true;
}

std::optional<Pixels> UITableView::measure(const SharedGeometry& geometry, NSIndexPath path) {
    const std::shared_ptr<UITableViewDelegate> delegate = this->delegate();
    const CGFloat answer = unlessAbsent(delegate).tableViewHeightForRowAtIndexPath(*this, path);
    if (m_geometry != geometry) {
        return std::nullopt;
    }
    if (answer >= 0) {
        return pixelsNearest(answer);
    }
    const std::shared_ptr<UITableViewCell> cell = visibleCell(geometry, path);
    if (!cell) {
        return std::nullopt;
    }
    // A cell without constraints has no height of its own.
    const Pixels fitting = pixelsToHold(cell->contentView()->heightFittingWidth(bounds().size.width));
    return fitting > 0 ? fitting : pixelsNearest(defaultRowHeight);
}

/// Tells the scroll view what is known by now. False when the part had to move to stay within the content.
bool UITableView::settle(const TableGeometry& geometry, VisiblePart& part) {
    const Pixels above = topOfSections();
    const CGRect sections = rectInContent(0, geometry.height());
    const CGFloat footer = m_tableFooterView ? pointsOf(pixelsToHold(m_tableFooterView->bounds().size.height)) : 0;
    setContentSizeAndOffset({sections.size.width, sections.maxY() + footer},
                            {contentOffset().x, pointsOf(part.top + above)});
    const Pixels moved = pixelPlace(contentOffset().y) - above - part.top;
    if (moved == 0) {
        return true;
    }
    part.move(moved);
    if (part.fixed < part.top || part.fixed > part.bottom) {
        part.fixed = fixedLine(geometry, part);
    }
    return false;
}

bool UITableView::show(const SharedGeometry& geometry, const VisiblePart& part) {
    std::vector<Placed> views;
    Pixels line = std::max<Pixels>(part.top, 0);
    while (line < part.bottom) {
        const std::optional<TableItem> item = geometry->itemAt(line);
        if (!item) {
            break;
        }
        line = item->bottom();
        std::shared_ptr<UIView> view;
        if (isRow(*item)) {
            view = visibleCell(geometry, item->indexPath);
        } else if (item->kind == TableItem::Kind::header) {
            view = visibleHeader(item->indexPath.section);
        }
        if (m_geometry != geometry || (isRow(*item) && !view)) {
            return false;
        }
        if (view) {
            views.push_back({view, rectInContent(item->top, item->height)});
        }
    }
    place(views);
    return true;
}

/// Subviews stand in reading order, so that whoever walks the tree meets the rows from top to bottom.
void UITableView::place(const std::vector<Placed>& views) {
    std::size_t index = 0;
    const auto put = [this, &index](const std::shared_ptr<UIView>& view, const CGRect& frame) {
        if (index >= subviews().size() || subviews()[index] != view) {
            insertSubviewAtIndex(view, index);
        }
        view->setFrame(frame);
        ++index;
    };
    const CGFloat width = contentSize().width;
    if (m_tableHeaderView) {
        put(m_tableHeaderView, {{0, 0}, {width, pointsOf(topOfSections())}});
    }
    for (const Placed& placed : views) {
        put(placed.view, placed.frame);
    }
    if (m_tableFooterView) {
        const CGFloat height = pointsOf(pixelsToHold(m_tableFooterView->bounds().size.height));
        put(m_tableFooterView, {{0, contentSize().height - height}, {width, height}});
    }
}

void UITableView::recycleOutside(const TableGeometry& geometry, const VisiblePart& part) {
    for (auto visible = m_visible.begin(); visible != m_visible.end();) {
        const bool stays = part.shows(geometry.row(visible->first));
        const std::shared_ptr<UITableViewCell> cell = visible->second;
        visible = stays ? std::next(visible) : m_visible.erase(visible);
        if (!stays) {
            recycle(cell);
        }
    }
    for (auto visible = m_visibleHeaders.begin(); visible != m_visibleHeaders.end();) {
        const bool stays = part.shows(geometry.header(visible->first));
        if (!stays && visible->second) {
            visible->second->removeFromSuperview();
        }
        visible = stays ? std::next(visible) : m_visibleHeaders.erase(visible);
    }
}

Pixels UITableView::topOfSections() const {
    return m_tableHeaderView ? std::max<Pixels>(pixelsToHold(m_tableHeaderView->bounds().size.height), 0) : 0;
}

CGRect UITableView::rectInContent(Pixels top, Pixels height) const {
    const CGFloat width = bounds().size.width;
    return {{0, pointsOf(top + topOfSections())}, {width > 0 && std::isfinite(width) ? width : 0, pointsOf(height)}};
}
