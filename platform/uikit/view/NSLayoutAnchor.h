#pragma once

#include "platform/uikit/view/NSLayoutConstraint.h"

/// One edge, centre line or dimension of a view, from which constraints are made in code. A value.
class NSLayoutAnchor {
public:
    explicit NSLayoutAnchor(LayoutEnd end) : m_end(std::move(end)) {}

    [[nodiscard]] std::shared_ptr<NSLayoutConstraint> constraintEqualToAnchor(const NSLayoutAnchor& anchor) const;
    [[nodiscard]] std::shared_ptr<NSLayoutConstraint> constraintEqualToAnchorConstant(const NSLayoutAnchor& anchor,
                                                                                      CGFloat constant) const;
    /// For widths and heights.
    [[nodiscard]] std::shared_ptr<NSLayoutConstraint> constraintEqualToConstant(CGFloat constant) const;

private:
    LayoutEnd m_end;
};
