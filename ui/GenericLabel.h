#pragma once

#include "platform/uikit/controls/UILabel.h"

/// A label with line spacing. The spacing is applied to the text of the moment when `space` is written; text assigned
/// later is shown without it until `space` is written again.
class GenericLabel : public UILabel {
public:
    using UILabel::UILabel;

    /// Extra distance between lines, points.
    [[nodiscard]] CGFloat space() const { return m_space; }
    void setSpace(CGFloat space);

private:
    void applyLineSpacing(CGFloat spacing);

    CGFloat m_space = 0;
};
