#include "content/MoreGameTypes.h"

#include "content/CurrentOption.h"

#include <cstddef>
#include <iterator>

namespace {

constexpr struct {
    MoreGameTypes gameType;
    CurrentOption option;
} sameNamed[] = {
    {MoreGameTypes::SpinTheBottle, CurrentOption::SpinTheBottle},
    {MoreGameTypes::IsItCheating, CurrentOption::IsItCheating},
    {MoreGameTypes::PickupLines, CurrentOption::PickupLines},
    {MoreGameTypes::PutAFingerDown, CurrentOption::PutAFingerDown},
    {MoreGameTypes::WhoIsMostLikely, CurrentOption::WhoIsMostLikely},
    {MoreGameTypes::Dating, CurrentOption::Dating},
    {MoreGameTypes::IceBreaker, CurrentOption::IceBreaker},
};

/// Each enumeration lists the game types in this order, MoreGameTypes after None, and none is left out.
constexpr bool isWholeAndInOrder() {
    for (int row = 0; row < static_cast<int>(std::size(sameNamed)); ++row) {
        if (static_cast<int>(sameNamed[row].gameType) != static_cast<int>(MoreGameTypes::SpinTheBottle) + row ||
            static_cast<int>(sameNamed[row].option) != static_cast<int>(CurrentOption::SpinTheBottle) + row) {
            return false;
        }
    }
    return std::size(sameNamed) == static_cast<std::size_t>(MoreGameTypes::IceBreaker);
}
static_assert(isWholeAndInOrder());

const std::string none = "None";

} // namespace

const std::string& rawValue(MoreGameTypes gameType) {
    return gameType == MoreGameTypes::None ? none : rawValue(sameNamed[static_cast<int>(gameType) - 1].option);
}

std::optional<MoreGameTypes> moreGameTypesFromRawValue(std::string_view text) {
    if (text == none) {
        return MoreGameTypes::None;
    }
    for (const auto& [gameType, option] : sameNamed) {
        if (rawValue(option) == text) {
            return gameType;
        }
    }
    return std::nullopt;
}
