#include "platform/uikit/view/NSLayoutConstraint.h"

#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/view/UIView.h"

namespace {

UIView* commonAncestor(UIView* one, const UIView* other) {
    for (UIView* ancestor = one; ancestor != nullptr; ancestor = ancestor->superview()) {
        if (other == nullptr || other->isDescendantOfView(*ancestor)) {
            return ancestor;
        }
    }
    return nullptr;
}

} // namespace

NSLayoutConstraint::NSLayoutConstraint(LayoutEnd first, LayoutRelation relation, LayoutEnd second, double multiplier,
                                       double constant)
    : m_first(std::move(first)), m_relation(relation), m_second(std::move(second)), m_multiplier(multiplier),
      m_constant(constant) {}

void NSLayoutConstraint::setConstant(double constant) {
    if (m_constant != constant) {
        m_constant = constant;
        systemNeedsSolving();
    }
}

void NSLayoutConstraint::setPriority(UILayoutPriority priority) {
    if (m_priority != priority) {
        m_priority = priority;
        systemNeedsSolving();
    }
}

void NSLayoutConstraint::setActive(bool active) {
    const std::shared_ptr<UIView> holder = m_holder.lock();
    if (active && !holder) {
        holderOfBothEnds().addConstraint(strong(this));
    } else if (!active && holder) {
        holder->removeConstraint(strong(this));
    }
}

UIView& NSLayoutConstraint::holderOfBothEnds() const {
    const std::shared_ptr<UIView> first = m_first.view.lock();
    const std::shared_ptr<UIView> second = m_second.view.lock();
    UIView* holder = commonAncestor(first.get(), second.get());
    if (holder == nullptr) {
        fatalErrorAt(*this,
                     "Cannot activate the constraint \"" + m_identifier + "\": its views have no common ancestor");
    }
    return *holder;
}

void NSLayoutConstraint::systemNeedsSolving() const {
    if (const std::shared_ptr<UIView> holder = m_holder.lock()) {
        holder->setNeedsUpdateConstraints();
    }
}
