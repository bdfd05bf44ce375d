#pragma once

#include "platform/graphics/UIColor.h"

#include <memory>

/// The extension's colours from its asset catalogue, each looked up once per process, at its first use.
namespace named_colors {

/// "AppGreen"; the platform's blue when the catalogue lacks it.
[[nodiscard]] const std::shared_ptr<UIColor>& appGreen();
/// "TextColor"; null when the catalogue lacks it.
[[nodiscard]] const std::shared_ptr<UIColor>& textColor();
/// "TextGrey"; null when the catalogue lacks it.
[[nodiscard]] const std::shared_ptr<UIColor>& textGrey();

} // namespace named_colors
