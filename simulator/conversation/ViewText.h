#pragma once

#include "platform/uikit/view/UIView.h"

#include <string>
#include <vector>

/// What a view says: its own text (of a text field without one, the placeholder), then its label for assistive tools.
[[nodiscard]] std::vector<std::string> textsOf(const UIView& view);
