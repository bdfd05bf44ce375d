#include "content/MoreGameTypes.h"

#include "content/CurrentOption.h"

#include <array>
#include <cstddef>

namespace {

constexpr std::array gameTypes{
    MoreGameTypes::None,        MoreGameTypes::SpinTheBottle,  MoreGameTypes::IsItCheating,
    MoreGameTypes::PickupLines, MoreGameTypes::PutAFingerDown, MoreGameTypes::WhoIsMostLikely,
    MoreGameTypes::Dating,      MoreGameTypes::IceBreaker,
};

} // namespace

const std::string& rawValue(MoreGameTypes gameType) {
    static const std::string none = "None";
    if (gameType == MoreGameTypes::None) {
        return none;
    }
    // Both enumerations list the game types in the same order.
    constexpr int offset =
        static_cast<int>(CurrentOption::SpinTheBottle) - static_cast<int>(MoreGameTypes::SpinTheBottle);
    return rawValue(static_cast<CurrentOption>(static_cast<int>(gameType) + offset));
}

std::optional<MoreGameTypes> moreGameTypesFromRawValue(std::string_view text) {
    for (const MoreGameTypes gameType : gameTypes) {
        if (rawValue(gameType) == text) {
            return gameType;
        }
    }
    return std::nullopt;
}
