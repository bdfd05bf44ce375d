#pragma once

#include "platform/layout/LayoutSystem.h"
#include "platform/uikit/view/NSLayoutConstraint.h"

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class UIView;

/// The observer is told of constraints that contradict each other and of views whose place they leave open, each text
/// once, with the constraint or view. One observer a process; none at first, and then nothing is kept.
using LayoutReportObserver = std::function<void(const std::string& text, const NSObject& about)>;
void setLayoutReportObserver(LayoutReportObserver observer);

/// How far a guide's edge, centre or length lies from the view's own; a guide has the view's baselines.
[[nodiscard]] CGFloat guideOffset(const UIView& view, LayoutGuide guide, LayoutAttribute attribute);

/// The side that an edge stands on which follows the phone's language, where that runs from right to left; any other
/// attribute is returned as it is. Such an edge counts its distances to the left.
[[nodiscard]] LayoutAttribute onThisPhone(LayoutAttribute attribute);

/// The constraints of one root view and its descendants, described for the solver: down to scroll views, whose content
/// is laid out by itself. Kept by the root until views or constraints come or go; only numbers are refreshed.
class ViewSystem {
public:
    /// Placing: the root's size is given. Fitting: its width is given, its height shall be small.
    enum class Purpose { placing, fitting };

    ViewSystem(UIView& root, Purpose purpose);

    /// Solves when a number changed since the last time; false when nothing did. Texts that wrap are measured again at
    /// the widths found.
    bool update();
    /// Gives the views the frames found, on device pixels.
    void placeViews();
    /// Tells the observer of conflicts and open places in the last solution.
    void report();
    [[nodiscard]] CGFloat heightForWidth(CGFloat width);

private:
    /// The live side of one LayoutItem.
    struct Entry {
        UIView* view = nullptr;
        bool isText = false; // dear to measure
        bool usesBaseline = false;
        bool widthIsGiven = false; // by its surroundings: the width that its content would like does not matter
        std::optional<CGSize> solvedSize{};
    };
    /// The live side of one LayoutConstraint.
    struct Row {
        const NSLayoutConstraint* source = nullptr;
        const UIView* first = nullptr;
        const UIView* second = nullptr; // null when the constraint has one end
        bool isMirrored = false;        // of edges that stand on the other side on this phone
    };

    void collectRows(const UIView& view);
    bool collectViews(UIView& view, int parent);
    void addConstraint(const Row& row);
    [[nodiscard]] int indexOf(const UIView* view) const;
    [[nodiscard]] bool isFixed(std::size_t index) const;
    void addFittingConstraints();
    void addAutoresizingConstraints(int index);
    void add(int first, LayoutAttribute attribute, int second, double priority = UILayoutPriorityRequired);
    void refresh();
    void refreshItems();
    void refreshItem(std::size_t index);
    void refreshConstraint(std::size_t index);
    void refreshAutoresizing(std::size_t index, std::size_t firstConstraint);
    /// Remembers when the field had another value.
    template <class T, class U>
    void assign(T& field, const U& value);
    void rememberSizes();
    void nameEverything();

    Purpose m_purpose;
    std::unordered_set<const UIView*> m_referenced;   // while building
    std::unordered_map<const UIView*, int> m_indices; // while building
    std::vector<Entry> m_entries;
    std::vector<LayoutItem> m_items; // as m_entries; the root first
    std::vector<Row> m_rows;
    std::vector<LayoutConstraint> m_constraints; // as m_rows, then those of this class's own for fitting
    LayoutResult m_result;
    CGFloat m_fittingWidth = 0;
    bool m_tiesWidthsToHeights = false;
    bool m_measuresTexts = false; // from the second solve on
    bool m_changed = true;        // since the last solve
};
