#include "content/DropdownRows.h"

#include <array>
#include <cstddef>

namespace {

using enum CurrentOption;
constexpr std::array playerGroups{Adult_18_Plus, Friends, Couple, Family};
constexpr std::array gameTypes{SpinTheBottle,   IsItCheating, PickupLines, PutAFingerDown,
                               WhoIsMostLikely, Dating,       IceBreaker};

template <class Options>
std::vector<std::string> titlesOf(const Options& options) {
    std::vector<std::string> titles;
    titles.reserve(options.size());
    for (const CurrentOption option : options) {
        titles.push_back(rawValue(option));
    }
    return titles;
}

template <class Options>
bool hasRow(const Options& options, int row) {
    return row >= 0 && static_cast<std::size_t>(row) < options.size();
}

} // namespace

std::vector<std::string> playerGroupTitles() {
    return titlesOf(playerGroups);
}

CurrentOption playerGroupOption(int row) {
    return hasRow(playerGroups, row) ? playerGroups[static_cast<std::size_t>(row)] : Family;
}

std::vector<std::string> gameTypeTitles() {
    return titlesOf(gameTypes);
}

std::optional<CurrentOption> gameTypeOption(int row) {
    if (!hasRow(gameTypes, row)) {
        return std::nullopt;
    }
    return gameTypes[static_cast<std::size_t>(row)];
}
