#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/foundation/Result.h"

#include <string>

/// The phone whose screen the conversation is shown on.
struct Device {
    std::string name;
    CGSize size; // points, upright
    int scale = 1;
    UIEdgeInsets safeArea;

    /// The part of the screen that an extension gets in each presentation, in screen coordinates.
    [[nodiscard]] CGRect compactFrame() const;
    [[nodiscard]] CGRect expandedFrame() const;
};

/// "se", "8", "8plus", "15", "15max", or a size such as "390x844@3".
[[nodiscard]] Result<Device> deviceNamed(const std::string& name);
