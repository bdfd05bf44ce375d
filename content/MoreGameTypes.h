#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The game type that a screen was opened for, if any. Nothing in the extension chooses one yet; a screen that is
/// given one before its view loads offers the game types in place of the player groups.
enum class MoreGameTypes {
    None,
    SpinTheBottle,
    IsItCheating,
    PickupLines,
    PutAFingerDown,
    WhoIsMostLikely,
    Dating,
    IceBreaker,
};

/// "None", or the raw value of the CurrentOption of the same name.
[[nodiscard]] const std::string& rawValue(MoreGameTypes gameType);
/// By exact, case-sensitive match; no value for any other text.
[[nodiscard]] std::optional<MoreGameTypes> moreGameTypesFromRawValue(std::string_view text);
