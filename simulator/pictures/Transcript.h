#pragma once

#include "platform/foundation/Geometry.h"

#include <memory>

class UIView;

/// The latest messages of a quiet conversation, the newest at the bottom; as many as fit as a whole.
[[nodiscard]] std::shared_ptr<UIView> makeTranscript(const CGRect& frame);
