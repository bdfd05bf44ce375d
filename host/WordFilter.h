#pragma once

#include "platform/foundation/Text.h"

#include <string>
#include <string_view>

/// Whether a word field that shows `text` takes an edit: letters A-Z and a-z only, at most 10 UTF-16 code units in all.
/// A deletion is always taken. `range` counts UTF-16 code units.
[[nodiscard]] bool wordFilterAccepts(std::string_view text, NSRange range, std::string_view replacement);
