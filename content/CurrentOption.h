#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

/// What the category screen shows: four player groups and seven game types, in declaration order.
enum class CurrentOption {
    Adult_18_Plus,
    Family,
    Couple,
    Friends,
    SpinTheBottle,
    IsItCheating,
    PickupLines,
    PutAFingerDown,
    WhoIsMostLikely,
    Dating,
    IceBreaker,
};

/// The content key: at once dropdown title, base name of the content file, key of the content map and the launch
/// link's "mainCategory".
[[nodiscard]] const std::string& rawValue(CurrentOption option);
/// By exact, case-sensitive match; none for any other text.
[[nodiscard]] std::optional<CurrentOption> currentOptionFromRawValue(std::string_view text);

/// All options in the order in which the load pass reads their files: the player groups and then the game types, each
/// in the order of the dropdown's rows.
[[nodiscard]] const std::array<CurrentOption, 11>& contentLoadOrder();
