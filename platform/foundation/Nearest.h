#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The known name that a mistyped one was probably meant to be: fewest edits, letter case aside, also of its last word
/// alone ("Dice" for "icon_dice"). None when nothing is near enough to be worth naming. Any thread.
[[nodiscard]] std::optional<std::string> nearestName(std::string_view wanted, const std::vector<std::string>& known);
/// "; did you mean NAME?", with that name, or nothing.
[[nodiscard]] std::string suggestion(std::string_view wanted, const std::vector<std::string>& known);
