#pragma once

#include "platform/uikit/view/NSLayoutConstraint.h"

// A constraint in words, for whoever inspects the screen.

/// "lblTitle.top = Card.top + 12 (priority 750)".
[[nodiscard]] std::string describe(const NSLayoutConstraint& constraint);

/// What became of it, by the frames that its views have: "satisfied"; "contradicting" when it is required and the
/// others left no room for it; "given up" when a stronger one went before.
[[nodiscard]] const char* stateOf(const NSLayoutConstraint& constraint);
