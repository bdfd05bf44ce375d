#include "platform/uikit/view/NSLayoutAnchor.h"

std::shared_ptr<NSLayoutConstraint> NSLayoutAnchor::constraintEqualToAnchor(const NSLayoutAnchor& anchor) const {
    return constraintEqualToAnchorConstant(anchor, 0);
}

std::shared_ptr<NSLayoutConstraint> NSLayoutAnchor::constraintEqualToAnchorConstant(const NSLayoutAnchor& anchor,
                                                                                    CGFloat constant) const {
    return std::make_shared<NSLayoutConstraint>(m_end, LayoutRelation::equal, anchor.m_end, 1, constant);
}

std::shared_ptr<NSLayoutConstraint> NSLayoutAnchor::constraintEqualToConstant(CGFloat constant) const {
    return std::make_shared<NSLayoutConstraint>(m_end, LayoutRelation::equal, LayoutEnd{}, 1, constant);
}
