#pragma once

#include "platform/graphics/UIColor.h"

#include <memory>
#include <string_view>

/// The opaque colour of a text of six hexadecimal digits, with or without one "#" before and white space around them.
/// A text of another length, counted in characters as a person sees them, gives the platform's gray; one of six
/// characters gives what its digits up to the first other character say.
[[nodiscard]] std::shared_ptr<UIColor> colorFromHex(std::string_view text);
