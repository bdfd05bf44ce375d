#pragma once

#include "platform/graphics/UIColor.h"

#include <memory>
#include <string_view>

/// The opaque colour of a text of six hexadecimal digits, with or without one "#" before and white space around them.
/// A text of another length, counted in characters as a person sees them, gives the platform's gray; one of six
/// characters gives what its digits up to the first other character say.
[[nodiscard]] std::shared_ptr<UIColor> colorFromHex(std::string_view text);

/// The extension's colours from its asset catalogue, each looked up once per process, at its first use.
namespace named_colors {

/// "AppGreen"; the platform's blue when the catalogue lacks it.
[[nodiscard]] const std::shared_ptr<UIColor>& appGreen();
/// "TextColor"; null when the catalogue lacks it.
[[nodiscard]] const std::shared_ptr<UIColor>& textColor();
/// "TextGrey"; null when the catalogue lacks it.
[[nodiscard]] const std::shared_ptr<UIColor>& textGrey();

} // namespace named_colors
