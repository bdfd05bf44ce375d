#include "platform/uikit/view/ViewSystem.h"

#include "platform/uikit/view/UIView.h"
#include "platform/uikit/window/UIScreen.h"

#include <cmath>

namespace {

constexpr int maximumSolves = 3;              // the natural widths, then two rounds for texts that wrap
constexpr std::size_t fittingConstraints = 4; // left, top, width and height of the root
constexpr std::size_t autoresizingConstraints = 4;

/// The solver's arithmetic leaves traces far behind the decimal point; a text must not be measured again for those.
CGFloat withoutNoise(CGFloat length) {
    return std::round(length * 1e6) / 1e6;
}

std::optional<CGFloat> metric(CGFloat length) {
    return length == UIView::noIntrinsicMetric ? std::nullopt : std::optional(length);
}

UIEdgeInsets sum(const UIEdgeInsets& one, const UIEdgeInsets& other) {
    return {one.top + other.top, one.left + other.left, one.bottom + other.bottom, one.right + other.right};
}

/// Whether the width of the content is no more than a wish.
bool hasOptionalWidth(const LayoutItem& item) {
    return item.width.strongestWish() < UILayoutPriorityRequired;
}

} // namespace

CGFloat guideOffset(const UIView& view, LayoutGuide guide, LayoutAttribute attribute) {
    if (guide == LayoutGuide::view || isBaseline(attribute)) {
        return 0;
    }
    const UIEdgeInsets safe = view.safeAreaInsets();
    const UIEdgeInsets insets = guide == LayoutGuide::safeArea ? safe : sum(view.layoutMargins(), safe);
    const auto [axis, positions, sizes] = measureOf(attribute);
    const CGFloat before = axis == LayoutAxis::horizontal ? insets.left : insets.top;
    const CGFloat after = axis == LayoutAxis::horizontal ? insets.right : insets.bottom;
    return positions * before - sizes * (before + after);
}

bool ViewSystem::isFixed(std::size_t index) const {
    return m_purpose == Purpose::placing &&
           (index == 0 || m_entries[index].view->translatesAutoresizingMaskIntoConstraints());
}

bool ViewSystem::update() {
    const bool isEmpty = m_entries.size() == 1 && m_constraints.empty() && m_purpose == Purpose::placing;
    refresh();
    if (!m_changed || isEmpty) {
        return false;
    }
    // Before a text is measured, its surroundings alone may give it its width: it is laid out for that only.
    for (int count = m_measuresTexts ? 1 : 0; count <= maximumSolves && m_changed; ++count) {
        m_result = solveLayout(m_items, m_constraints);
        rememberSizes();
        m_measuresTexts = true;
        m_changed = false;
        refreshItems();
    }
    m_changed = false;
    return true;
}

template <class T, class U>
void ViewSystem::assign(T& field, const U& value) {
    m_changed = m_changed || !(field == value);
    field = value;
}

void ViewSystem::refreshItems() {
    for (std::size_t index = 0; index < m_entries.size(); ++index) {
        refreshItem(index);
    }
}

void ViewSystem::placeViews() {
    std::vector<CGPoint> origins(m_entries.size());
    for (std::size_t index = 1; index < m_entries.size(); ++index) {
        if (isFixed(index)) {
            origins[index] = m_result.frames[index].origin;
            continue;
        }
        const CGRect frame = UIScreen::mainScreen().grid().snapped(m_result.frames[index]);
        const CGPoint parent = origins[static_cast<std::size_t>(m_items[index].parent)];
        origins[index] = frame.origin;
        m_entries[index].view->place(frame.offsetBy(-parent.x, -parent.y));
    }
}

CGFloat ViewSystem::heightForWidth(CGFloat width) {
    m_fittingWidth = width;
    update();
    return UIScreen::mainScreen().grid().holding(m_result.frames[0].size).height;
}

void ViewSystem::refresh() {
    refreshItems();
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        refreshConstraint(index);
    }
    if (m_purpose == Purpose::placing) {
        return;
    }
    assign(m_constraints[m_rows.size() + 2].constant, m_fittingWidth);
    std::size_t next = m_rows.size() + fittingConstraints;
    for (std::size_t index = 1; index < m_entries.size(); ++index) {
        if (m_entries[index].view->translatesAutoresizingMaskIntoConstraints()) {
            refreshAutoresizing(index, next);
            next += autoresizingConstraints;
        }
    }
}

void ViewSystem::refreshItem(std::size_t index) {
    LayoutItem& item = m_items[index];
    const Entry& entry = m_entries[index];
    const UIView& view = *entry.view;
    CGSize size;
    if (isFixed(index)) {
        const CGRect frame = index == 0 ? CGRect{{0, 0}, view.bounds().size} : view.frame();
        assign(item.fixedFrame, std::optional(frame));
        size = frame.size;
    } else if (entry.isText && !m_measuresTexts) {
        assign(item.width.isOpen, !m_tiesWidthsToHeights && hasOptionalWidth(item));
        return;
    } else {
        const bool needsWidth = !entry.widthIsGiven;
        assign(item.width.isOpen, item.width.isOpen && !needsWidth);
        CGSize natural = needsWidth ? view.intrinsicContentSize() : CGSize{UIView::noIntrinsicMetric, 0};
        if (entry.solvedSize) {
            natural.height = view.intrinsicContentSizeForWidth(entry.solvedSize->width).height;
        }
        assign(item.width.length, metric(natural.width));
        assign(item.height.length, metric(natural.height));
        size = entry.solvedSize.value_or(natural);
    }
    if (entry.usesBaseline) {
        assign(item.firstBaseline, view.firstBaseline(size));
        assign(item.lastBaseline, view.lastBaseline(size));
    }
}

void ViewSystem::refreshConstraint(std::size_t index) {
    const Row& row = m_rows[index];
    const NSLayoutConstraint& source = *row.source;
    LayoutConstraint& constraint = m_constraints[index];
    double constant = row.isMirrored ? -source.constant() : source.constant();
    constant -= guideOffset(*row.first, source.first().guide, constraint.firstAttribute);
    if (row.second != nullptr) {
        constant += source.multiplier() * guideOffset(*row.second, source.second().guide, constraint.secondAttribute);
    }
    assign(constraint.constant, constant);
    assign(constraint.priority, static_cast<double>(source.priority()));
}

void ViewSystem::refreshAutoresizing(std::size_t index, std::size_t firstConstraint) {
    const CGRect frame = m_entries[index].view->frame();
    const CGSize parent = m_entries[static_cast<std::size_t>(m_items[index].parent)].view->bounds().size;
    LayoutConstraint* constraints = &m_constraints[firstConstraint];
    const bool growsSideways = constraints[2].firstAttribute == LayoutAttribute::right;
    const bool growsDown = constraints[3].firstAttribute == LayoutAttribute::bottom;
    assign(constraints[0].constant, frame.minX());
    assign(constraints[1].constant, frame.minY());
    assign(constraints[2].constant, growsSideways ? frame.maxX() - parent.width : frame.size.width);
    assign(constraints[3].constant, growsDown ? frame.maxY() - parent.height : frame.size.height);
}

void ViewSystem::rememberSizes() {
    for (std::size_t index = 0; index < m_entries.size(); ++index) {
        Entry& entry = m_entries[index];
        const LayoutItem& item = m_items[index];
        entry.widthIsGiven = m_result.conflicts.empty() && m_result.givenWidths[index] && hasOptionalWidth(item);
        if (m_measuresTexts || !entry.isText || entry.widthIsGiven) {
            const CGSize size = m_result.frames[index].size;
            entry.solvedSize = CGSize{withoutNoise(size.width), withoutNoise(size.height)};
        }
    }
}
