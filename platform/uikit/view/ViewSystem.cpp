#include "platform/uikit/view/ViewSystem.h"

#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/window/UIScreen.h"

LayoutAttribute onThisPhone(LayoutAttribute attribute) {
    if (UIScreen::mainScreen().userInterfaceLayoutDirection() == UIUserInterfaceLayoutDirection::leftToRight) {
        return attribute;
    }
    switch (attribute) {
    case LayoutAttribute::leading:
        return LayoutAttribute::right;
    case LayoutAttribute::trailing:
        return LayoutAttribute::left;
    default:
        return attribute;
    }
}

namespace {

void setPriorities(LayoutContent& content, const ContentPriorities& priorities) {
    content.hugging = priorities.hugging;
    content.compressionResistance = priorities.compressionResistance;
}

} // namespace

ViewSystem::ViewSystem(UIView& root, Purpose purpose) : m_purpose(purpose) {
    collectRows(root);
    collectViews(root, -1);
    std::vector<Row> candidates;
    candidates.swap(m_rows);
    for (const Row& row : candidates) {
        addConstraint(row);
    }
    if (purpose == Purpose::fitting) {
        addFittingConstraints();
    }
    m_referenced.clear();
    m_indices.clear();
}

void ViewSystem::collectRows(const UIView& view) {
    for (const std::shared_ptr<NSLayoutConstraint>& constraint : view.constraints()) {
        const Row row{constraint.get(), constraint->first().view.lock().get(), constraint->second().view.lock().get()};
        const bool hasTwoEnds = constraint->second().attribute != LayoutAttribute::notAnAttribute;
        if (row.first == nullptr || (hasTwoEnds && row.second == nullptr)) {
            continue;
        }
        m_rows.push_back(row);
        m_referenced.insert(row.first);
        m_referenced.insert(row.second);
    }
    if (!view.isLayoutRoot()) {
        for (const std::shared_ptr<UIView>& subview : view.subviews()) {
            collectRows(*subview);
        }
    }
}

/// Leaves out what has a frame of its own and is of no interest to any constraint; false when it did.
bool ViewSystem::collectViews(UIView& view, int parent) {
    const int index = static_cast<int>(m_entries.size());
    m_entries.push_back({.view = &view, .isText = dynamic_cast<const UILabel*>(&view) != nullptr});
    m_items.emplace_back().parent = parent;
    bool isWanted = !view.translatesAutoresizingMaskIntoConstraints() || m_referenced.count(&view) != 0;
    if (!view.isLayoutRoot()) {
        for (const std::shared_ptr<UIView>& subview : view.subviews()) {
            isWanted = collectViews(*subview, index) || isWanted;
        }
    }
    if (m_purpose == Purpose::placing) {
        view.setPlacedByConstraints(isWanted);
    }
    if (!isWanted && parent >= 0) {
        m_entries.pop_back();
        m_items.pop_back();
        return false;
    }
    LayoutItem& item = m_items[static_cast<std::size_t>(index)];
    setPriorities(item.width, view.horizontalPriorities());
    setPriorities(item.height, view.verticalPriorities());
    m_indices[&view] = index;
    return true;
}

int ViewSystem::indexOf(const UIView* view) const {
    const auto found = m_indices.find(view);
    return found == m_indices.end() ? -1 : found->second;
}

/// A constraint that reaches out of this system is left to the system around it.
void ViewSystem::addConstraint(const Row& row) {
    const int first = indexOf(row.first);
    const int second = indexOf(row.second);
    if (first < 0 || (row.second != nullptr && second < 0)) {
        return;
    }
    const NSLayoutConstraint& source = *row.source;
    const LayoutAttribute firstAttribute = onThisPhone(source.first().attribute);
    const bool isMirrored = firstAttribute != source.first().attribute; // at least so far left is at most so far right
    const int sign = isMirrored ? -1 : 1;
    m_entries[static_cast<std::size_t>(first)].usesBaseline |= isBaseline(source.first().attribute);
    if (second >= 0) {
        m_entries[static_cast<std::size_t>(second)].usesBaseline |= isBaseline(source.second().attribute);
    }
    const LayoutAttribute secondAttribute = onThisPhone(source.second().attribute);
    m_tiesWidthsToHeights |= second >= 0 && measureOf(firstAttribute).axis != measureOf(secondAttribute).axis;
    m_rows.push_back(row);
    m_rows.back().isMirrored = isMirrored;
    m_constraints.push_back({.first = first,
                             .firstAttribute = firstAttribute,
                             .relation = static_cast<LayoutRelation>(sign * static_cast<int>(source.relation())),
                             .second = second,
                             .secondAttribute = secondAttribute,
                             .multiplier = source.multiplier()});
}

void ViewSystem::add(int first, LayoutAttribute attribute, int second, double priority) {
    m_constraints.push_back({.first = first,
                             .firstAttribute = attribute,
                             .second = second,
                             .secondAttribute = second < 0 ? LayoutAttribute::notAnAttribute : attribute,
                             .priority = priority});
}

void ViewSystem::addFittingConstraints() {
    add(0, LayoutAttribute::left, -1);
    add(0, LayoutAttribute::top, -1);
    add(0, LayoutAttribute::width, -1);
    add(0, LayoutAttribute::height, -1, UILayoutPriorityFittingSizeLevel);
    for (std::size_t index = 1; index < m_entries.size(); ++index) {
        if (m_entries[index].view->translatesAutoresizingMaskIntoConstraints()) {
            addAutoresizingConstraints(static_cast<int>(index));
        }
    }
}

/// While the root's height is open, a view that is placed by its mask keeps its distances instead of its frame.
void ViewSystem::addAutoresizingConstraints(int index) {
    const std::size_t position = static_cast<std::size_t>(index);
    const unsigned mask = m_entries[position].view->autoresizingMask();
    const int parent = m_items[position].parent;
    const bool growsSideways = (mask & UIViewAutoresizingFlexibleWidth) != 0;
    const bool growsDown = (mask & UIViewAutoresizingFlexibleHeight) != 0;
    add(index, LayoutAttribute::left, parent);
    add(index, LayoutAttribute::top, parent);
    add(index, growsSideways ? LayoutAttribute::right : LayoutAttribute::width, growsSideways ? parent : -1);
    add(index, growsDown ? LayoutAttribute::bottom : LayoutAttribute::height, growsDown ? parent : -1);
}
