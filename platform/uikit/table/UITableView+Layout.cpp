#include "platform/uikit/table/UITableView.h"

#include "platform/foundation/FatalError.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controllers/UINib.h"
#include "platform/uikit/table/UITableViewCell.h"
#include "platform/uikit/window/UIScreen.h"

#include <algorithm>

namespace {

/// No screen is taller; a table that a wrong document makes taller shows the beginning only.
constexpr Pixels tallestWindow = 16'384;

std::shared_ptr<UITableViewCell> cellFromNib(UINib& nib, const std::string& identifier) {
    const auto objects = nib.instantiateWithOwner(nullptr);
    if (!objects) {
        fatalError("Could not make a cell for the reuse identifier \"" + identifier + "\": " + objects.failure().what);
    }
    const auto cell =
        objects.value().empty() ? nullptr : std::dynamic_pointer_cast<UITableViewCell>(objects.value().front());
    if (!cell) {
        fatalError("The first object of nib \"" + nib.name() + "\", registered for the reuse identifier \"" +
                   identifier + "\", is not a table view cell");
    }
    return cell;
}

} // namespace

void UITableView::layoutSubviews() {
    UIView::layoutSubviews(); // not the scroll view's: how far the content reaches is only known below
    if (m_layingOut) {
        return;
    }
    m_layingOut = true;
    if (!layoutRows()) {
        setNeedsLayout();
    }
    m_layingOut = false;
}

bool UITableView::layoutRows() {
    const std::shared_ptr<TableRows> rows = this->rows();
    if (rows != m_source.rows()) {
        return false; // reloaded while they were counted
    }
    const PixelGrid& grid = UIScreen::mainScreen().grid();
    TableWindow window;
    window.top = grid.nearest(contentOffset().y);
    window.height = std::clamp<Pixels>(grid.holding(bounds().size.height), 0, tallestWindow);
    if (m_measuredWidth != bounds().size.width) {
        m_measuredWidth = bounds().size.width;
        rows->forgetHeights(window);
    }
    const TableRows::Measure measured = [this, &rows](NSIndexPath path) { return measure(*rows, path); };
    for (bool isSettled = false; !isSettled;) {
        if (!rows->layOut(window, measured)) {
            return false;
        }
        const CGSize content = rectOf({.path = {}, .top = 0, .height = rows->height()}).size;
        setContentSizeAndOffset(content, {contentOffset().x, grid.points(window.top)});
        const Pixels allowed = grid.nearest(contentOffset().y); // within the content, whose height has changed
        isSettled = allowed == std::exchange(window.top, allowed);
    }
    return placeViews(*rows);
}

std::optional<Pixels> UITableView::measure(const TableRows& rows, NSIndexPath path) {
    const std::optional<CGFloat> answer = m_source.heightOfRow(path);
    if (!answer) {
        return std::nullopt;
    }
    const PixelGrid& grid = UIScreen::mainScreen().grid();
    if (*answer >= 0) {
        return grid.nearest(*answer);
    }
    const std::optional<std::shared_ptr<UIView>> view = viewFor(rows, path);
    if (!view) {
        return std::nullopt;
    }
    const UITableViewCell& cell = static_cast<const UITableViewCell&>(**view);
    const Pixels fitting = grid.holding(cell.contentView()->heightFittingWidth(bounds().size.width));
    return fitting > 0 ? fitting : grid.nearest(defaultRowHeight); // a cell without constraints has no height
}

/// Subviews stand in reading order, so that whoever walks the tree meets the rows from top to bottom.
bool UITableView::placeViews(const TableRows& rows) {
    recycleHidden(rows);
    std::size_t index = 0;
    for (const TableItem& item : rows.shown()) {
        const std::optional<std::shared_ptr<UIView>> view = viewFor(rows, item.path);
        if (!view) {
            return false;
        }
        if (*view) {
            if (index >= subviews().size() || subviews()[index] != *view) {
                insertSubviewAtIndex(*view, index);
            }
            (*view)->setFrame(rectOf(item));
            ++index;
        }
    }
    return true;
}

/// Null for an item without a view. What has left the window is given back first, so that its cell can serve here.
std::optional<std::shared_ptr<UIView>> UITableView::viewFor(const TableRows& rows, NSIndexPath path) {
    if (const auto shown = m_views.find(path); shown != m_views.end()) {
        return shown->second;
    }
    recycleHidden(rows);
    const std::optional<std::shared_ptr<UIView>> view = m_source.viewOf(path);
    if (!view) {
        return std::nullopt;
    }
    if (TableItem::isRow(path)) {
        // A cell shows one row: the last one it was returned for.
        std::erase_if(m_views, [&view](const auto& shown) { return shown.second == *view; });
        mark(static_cast<UITableViewCell&>(**view), path);
    }
    m_views[path] = *view;
    return view;
}

// Cells that wait for another row.

std::shared_ptr<UITableViewCell>
UITableView::dequeueReusableCellWithIdentifierForIndexPath(const std::string& identifier, NSIndexPath) {
    std::vector<std::shared_ptr<UITableViewCell>>& waiting = m_reusable[identifier];
    if (!waiting.empty()) {
        std::shared_ptr<UITableViewCell> cell = waiting.back();
        waiting.pop_back();
        return cell;
    }
    const auto nib = m_nibs.find(identifier);
    if (nib == m_nibs.end() || !nib->second) {
        fatalErrorAt(*this, "No nib is registered for the cell reuse identifier \"" + identifier + "\"");
    }
    std::shared_ptr<UITableViewCell> cell = cellFromNib(*nib->second, identifier);
    cell->setReuseIdentifier(identifier);
    return cell;
}

void UITableView::recycleHidden(const TableRows& rows) {
    for (auto shown = m_views.begin(); shown != m_views.end();) {
        const auto next = std::next(shown);
        if (!rows.shows(shown->first)) {
            recycle(m_views.extract(shown).mapped());
        }
        shown = next;
    }
}

void UITableView::recycle(const std::shared_ptr<UIView>& view) {
    if (view && view->superview() == this) {
        view->removeFromSuperview();
    }
    if (const auto cell = std::dynamic_pointer_cast<UITableViewCell>(view)) {
        cell->setHighlighted(false);
        cell->setSelected(false);
        if (!cell->reuseIdentifier().empty()) {
            m_reusable[cell->reuseIdentifier()].push_back(cell);
        }
    }
}
