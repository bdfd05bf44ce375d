#include "content/DropdownRows.h"

#include <cstddef>
#include <span>

namespace {

constexpr std::size_t playerGroupCount = 4;

std::span<const CurrentOption> playerGroups() {
    return std::span(contentLoadOrder()).first(playerGroupCount);
}

std::span<const CurrentOption> gameTypes() {
    return std::span(contentLoadOrder()).subspan(playerGroupCount);
}

std::vector<std::string> titlesOf(std::span<const CurrentOption> options) {
    std::vector<std::string> titles;
    titles.reserve(options.size());
    for (const CurrentOption option : options) {
        titles.push_back(rawValue(option));
    }
    return titles;
}

/// None for a row that the list does not have.
std::optional<CurrentOption> optionAt(std::span<const CurrentOption> options, int row) {
    const auto index = static_cast<std::size_t>(row); // a row below 0 becomes one far beyond the list
    return index < options.size() ? std::optional(options[index]) : std::nullopt;
}

} // namespace

std::vector<std::string> playerGroupTitles() {
    return titlesOf(playerGroups());
}

CurrentOption playerGroupOption(int row) {
    return optionAt(playerGroups(), row).value_or(CurrentOption::Family);
}

std::vector<std::string> gameTypeTitles() {
    return titlesOf(gameTypes());
}

std::optional<CurrentOption> gameTypeOption(int row) {
    return optionAt(gameTypes(), row);
}
