#pragma once

#include "simulator/conversation/Device.h"

#include <memory>

class UIView;

/// The phone's own line at the top of the screen: time, reception and battery, arranged as on that device.
[[nodiscard]] std::shared_ptr<UIView> makeStatusBar(const Device& device);
