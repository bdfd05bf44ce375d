#pragma once

#include "platform/uikit/view/UIView.h"

#include <string>

/// The header of a section. The table owns it while it is seen.
class UITableViewHeaderFooterView : public UIView {
public:
    explicit UITableViewHeaderFooterView(const std::string& reuseIdentifier); // initWithReuseIdentifier:
    explicit UITableViewHeaderFooterView(const NSCoder& coder);               // initWithCoder:

    [[nodiscard]] const std::string& reuseIdentifier() const { return m_reuseIdentifier; }

private:
    std::string m_reuseIdentifier;
};
