#pragma once

#include "platform/uikit/controls/UIButton.h"

#include <functional>

/// Called with the button that was tapped, on the main thread.
using TouchUpInsideHandler = std::function<void(UIButton&)>;

/// Runs `handler` at every touch-up inside the button. The button keeps one handler; another one replaces it.
void setTouchUpInsideHandler(UIButton& button, TouchUpInsideHandler handler);

/// The action behind it, `handleButtonTouchEventWithSender:`: runs the button's handler with the sender. Without a
/// handler nothing happens.
void handleButtonTouchEventWithSender(UIButton& button, NSObject* sender);
