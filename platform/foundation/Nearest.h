#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The known name that a mistyped one was probably meant to be: fewest edits, letter case aside. Absent when none is
/// near enough to be worth naming. Any thread.
[[nodiscard]] std::optional<std::string> nearestName(std::string_view wanted, const std::vector<std::string>& known);

/// "; did you mean NAME?", or nothing.
[[nodiscard]] std::string suggestion(std::string_view wanted, const std::vector<std::string>& known);
