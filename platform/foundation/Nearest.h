#pragma once

#include <string>
#include <string_view>
#include <vector>

/// "; did you mean NAME?", with the known name that a mistyped one was probably meant to be: fewest edits, letter case
/// aside. Empty when none is near enough to be worth naming. Any thread.
[[nodiscard]] std::string suggestion(std::string_view wanted, const std::vector<std::string>& known);
