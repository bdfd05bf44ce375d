#include "platform/uikit/view/ViewSystem.h"

#include "platform/runtime/ClassRegistry.h"
#include "platform/uikit/view/UIView.h"

#include <set>

namespace {

std::string nameOf(const UIView& view) {
    const std::string& identifier = view.accessibilityIdentifier();
    return identifier.empty() ? classNameOf(view) : classNameOf(view) + " \"" + identifier + "\"";
}

std::string nameOf(const NSLayoutConstraint& constraint, const UIView& first, const UIView* second) {
    if (!constraint.identifier().empty()) {
        return constraint.identifier();
    }
    std::string name = "a constraint of " + nameOf(first);
    return second == nullptr || second == &first ? name : name + " and " + nameOf(*second);
}

struct Reports {
    LayoutReportObserver observer;
    std::set<std::string> told;
};

Reports& reports() {
    static Reports instance;
    return instance;
}

void tell(const std::string& text, const NSObject& about) {
    if (reports().told.insert(text).second) {
        reports().observer(text, about);
    }
}

std::string othersOf(const LayoutConflict& conflict) {
    std::string text;
    for (const std::string& other : conflict.others) {
        text += (text.empty() ? ": " : ", ") + other;
    }
    return text;
}

std::string openPlaces(const LayoutAmbiguity& ambiguity) {
    const std::pair<bool, const char*> places[] = {
        {ambiguity.x, "x"}, {ambiguity.y, "y"}, {ambiguity.width, "width"}, {ambiguity.height, "height"}};
    std::string text;
    for (const auto& [isOpen, name] : places) {
        text += !isOpen ? "" : (text.empty() ? " " : ", ") + std::string(name);
    }
    return text;
}

} // namespace

void setLayoutReportObserver(LayoutReportObserver observer) {
    reports() = {std::move(observer), {}};
}

/// Only now, and seldom, are names needed: everything is named and solved once more.
void ViewSystem::report() {
    if (!reports().observer || (m_result.conflicts.empty() && m_result.ambiguities.empty())) {
        return;
    }
    nameEverything();
    const LayoutResult named = solveLayout(m_items, m_constraints);
    for (const LayoutConflict& conflict : named.conflicts) {
        const auto index = static_cast<std::size_t>(conflict.constraint);
        const bool isRow = conflict.constraint >= 0 && index < m_rows.size();
        tell("layout conflict: " + conflict.name + " " + conflict.reason + othersOf(conflict),
             isRow ? static_cast<const NSObject&>(*m_rows[index].source) : *m_entries.front().view);
    }
    for (const LayoutAmbiguity& ambiguity : named.ambiguities) {
        tell("layout ambiguity: " + ambiguity.name + " has no definite" + openPlaces(ambiguity),
             *m_entries[static_cast<std::size_t>(ambiguity.item)].view);
    }
}

void ViewSystem::nameEverything() {
    for (std::size_t index = 0; index < m_items.size(); ++index) {
        m_items[index].name = nameOf(*m_entries[index].view);
    }
    for (std::size_t index = 0; index < m_constraints.size(); ++index) {
        LayoutConstraint& constraint = m_constraints[index];
        constraint.name = index < m_rows.size()
                              ? nameOf(*m_rows[index].source, *m_rows[index].first, m_rows[index].second)
                              : m_items[static_cast<std::size_t>(constraint.first)].name;
    }
}
