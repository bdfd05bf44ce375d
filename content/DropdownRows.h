#pragma once

#include "content/CurrentOption.h"

#include <optional>
#include <string>
#include <vector>

/// The rows of the option dropdown, in order: the player groups, or the game types on a screen opened for one.

/// "Adult (18+)", "Friends", "Couple", "Family": not the declaration order of the options.
[[nodiscard]] std::vector<std::string> playerGroupTitles();
/// Any row other than the first three gives Family.
[[nodiscard]] CurrentOption playerGroupOption(int row);

/// "Spin The Bottle" to "Ice Breaker".
[[nodiscard]] std::vector<std::string> gameTypeTitles();
/// None for a row that the list does not have.
[[nodiscard]] std::optional<CurrentOption> gameTypeOption(int row);
