#pragma once

#include "platform/layout/LayoutSystem.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <string>

class UIView;

/// What a constraint holds on to in a view: its own edges, those inside its margins, or those inside the safe area.
enum class LayoutGuide { view, margins, safeArea };

/// One end of a constraint.
struct LayoutEnd {
    std::weak_ptr<UIView> view;
    LayoutGuide guide = LayoutGuide::view;
    LayoutAttribute attribute = LayoutAttribute::notAnAttribute;
};

using UILayoutPriority = float;
inline constexpr UILayoutPriority UILayoutPriorityRequired = 1000;
inline constexpr UILayoutPriority UILayoutPriorityDefaultHigh = 750;
inline constexpr UILayoutPriority UILayoutPriorityDefaultLow = 250;
inline constexpr UILayoutPriority UILayoutPriorityFittingSizeLevel = 50;

/// first.attribute RELATION multiplier * second.attribute + constant. Owned by the view that both ends share as an
/// ancestor once it is active; refers to its views weakly.
class NSLayoutConstraint : public NSObject {
public:
    NSLayoutConstraint(LayoutEnd first, LayoutRelation relation, LayoutEnd second, double multiplier, double constant);

    [[nodiscard]] const LayoutEnd& first() const { return m_first; }
    /// Its attribute is notAnAttribute when the constraint has one end only.
    [[nodiscard]] const LayoutEnd& second() const { return m_second; }
    [[nodiscard]] LayoutRelation relation() const { return m_relation; }
    [[nodiscard]] double multiplier() const { return m_multiplier; }
    [[nodiscard]] double constant() const { return m_constant; }
    void setConstant(double constant);
    [[nodiscard]] UILayoutPriority priority() const { return m_priority; }
    void setPriority(UILayoutPriority priority);
    /// For reports; interface files give their identifier, label or id with file and line.
    [[nodiscard]] const std::string& identifier() const { return m_identifier; }
    void setIdentifier(const std::string& identifier) { m_identifier = identifier; }

    [[nodiscard]] bool isActive() const { return !m_holder.expired(); }
    /// For the view that holds the constraint from now on; none when it is dropped.
    void setHolder(const std::weak_ptr<UIView>& holder) { m_holder = holder; }
    /// Hands the constraint to the nearest common ancestor of its views, which keeps it as long as it has both (without
    /// one the program stops), or takes it from there.
    void setActive(bool active);

private:
    [[nodiscard]] UIView& holderOfBothEnds() const;
    void systemNeedsSolving() const;

    LayoutEnd m_first;
    LayoutRelation m_relation;
    LayoutEnd m_second;
    double m_multiplier;
    double m_constant;
    UILayoutPriority m_priority = UILayoutPriorityRequired;
    std::string m_identifier;
    std::weak_ptr<UIView> m_holder;
};

/// One edge of a view, from which constraints are made in code. A value.
class NSLayoutAnchor {
public:
    explicit NSLayoutAnchor(LayoutEnd end) : m_end(std::move(end)) {}

    [[nodiscard]] std::shared_ptr<NSLayoutConstraint> constraintEqualToAnchor(const NSLayoutAnchor& anchor) const {
        return std::make_shared<NSLayoutConstraint>(m_end, LayoutRelation::equal, anchor.m_end, 1, 0);
    }

private:
    LayoutEnd m_end;
};
