#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/foundation/Result.h"
#include "platform/graphics/UIFont.h"
#include "platform/uikit/window/UIScreen.h"

#include <string>
#include <vector>

/// The phone whose screen the conversation is shown on.
struct Device {
    std::string name;
    CGSize size; // points, upright
    int scale = 1;
    UIEdgeInsets safeArea;
    UIContentSizeCategory textSize = UIContentSizeCategory::large;                          // that its reader wants
    UIUserInterfaceLayoutDirection direction = UIUserInterfaceLayoutDirection::leftToRight; // of its language

    /// The part of the screen that an extension gets in each presentation, in screen coordinates.
    [[nodiscard]] CGRect compactFrame() const;
    [[nodiscard]] CGRect expandedFrame() const;
};

/// "se", "8", "8plus", "15", "15max", or a size such as "390x844@3".
[[nodiscard]] Result<Device> deviceNamed(const std::string& name);

/// "xSmall" to "xxxLarge", then "accessibility1" to "accessibility3".
[[nodiscard]] const std::vector<std::string>& textSizeNames();
/// One of these names.
[[nodiscard]] UIContentSizeCategory textSizeNamed(const std::string& name);
