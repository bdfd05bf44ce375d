#pragma once

#include "platform/uikit/view/UIView.h"

#include <string>

/// The header of a section. The table owns it while it is seen; it is never used again for another section.
class UITableViewHeaderFooterView : public UIView {
public:
    explicit UITableViewHeaderFooterView(const std::string& /*reuseIdentifier*/) {} // initWithReuseIdentifier:
    explicit UITableViewHeaderFooterView(const NSCoder& coder) : UIView(coder) {}   // initWithCoder:
};
