#include "platform/uikit/table/UITableView.h"

#include "platform/foundation/FatalError.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controllers/UINib.h"
#include "platform/uikit/table/TableGeometry.h"
#include "platform/uikit/table/UITableViewCell.h"

#include <algorithm>
#include <utility>

namespace {

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

void UITableView::registerNibForCellReuseIdentifier(const std::shared_ptr<UINib>& nib, const std::string& identifier) {
    m_nibs[identifier] = nib;
}

std::shared_ptr<UITableViewCell>
UITableView::dequeueReusableCellWithIdentifierForIndexPath(const std::string& identifier, NSIndexPath) {
    std::vector<std::shared_ptr<UITableViewCell>>& waiting = m_reusable[identifier];
    if (!waiting.empty()) {
        std::shared_ptr<UITableViewCell> cell = waiting.back();
        waiting.pop_back();
        cell->prepareForReuse();
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

std::shared_ptr<UITableViewCell> UITableView::visibleCell(const SharedGeometry& geometry, NSIndexPath path) {
    if (std::shared_ptr<UITableViewCell> shown = cellForRowAtIndexPath(path)) {
        return shown;
    }
    const std::shared_ptr<UITableViewDataSource> source = dataSource();
    if (!source) {
        return nullptr;
    }
    std::shared_ptr<UITableViewCell> cell = source->tableViewCellForRowAtIndexPath(*this, path);
    if (!cell) {
        fatalErrorAt(*this, "The data source returned no cell for row " + std::to_string(path.row) + " of section " +
                                std::to_string(path.section));
    }
    if (m_geometry != geometry) {
        recycle(cell);
        return nullptr;
    }
    // A cell shows one row: the last one it was returned for.
    const auto earlier = std::find_if(m_visible.begin(), m_visible.end(),
                                      [&cell](const auto& visible) { return visible.second == cell; });
    if (earlier != m_visible.end()) {
        m_visible.erase(earlier);
    }
    cell->setSelected(m_selected == path);
    cell->setHighlighted(m_touched == path);
    m_visible[path] = cell;
    return cell;
}

std::shared_ptr<UIView> UITableView::visibleHeader(int section) {
    const auto shown = m_visibleHeaders.find(section);
    if (shown != m_visibleHeaders.end()) {
        return shown->second;
    }
    const SharedGeometry asked = m_geometry;
    const std::shared_ptr<UITableViewDelegate> delegate = this->delegate();
    std::shared_ptr<UIView> view = delegate ? delegate->tableViewViewForHeaderInSection(*this, section) : nullptr;
    if (m_geometry == asked) {
        m_visibleHeaders[section] = view;
    }
    return view;
}

/// In reverse, so that after a reload the rows get the cells that showed them before: less of them changes.
void UITableView::recycleAll() {
    const auto cells = std::exchange(m_visible, {});
    for (auto visible = cells.rbegin(); visible != cells.rend(); ++visible) {
        recycle(visible->second);
    }
    for (const auto& [section, view] : std::exchange(m_visibleHeaders, {})) {
        if (view) {
            view->removeFromSuperview();
        }
    }
}

void UITableView::recycle(const std::shared_ptr<UITableViewCell>& cell) {
    if (cell->superview() == this) {
        cell->removeFromSuperview();
    }
    cell->setHighlighted(false);
    cell->setSelected(false);
    if (!cell->reuseIdentifier().empty()) {
        m_reusable[cell->reuseIdentifier()].push_back(cell);
    }
}
