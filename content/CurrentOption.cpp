#include "content/CurrentOption.h"

#include <algorithm>
#include <cstddef>

namespace {

const std::array<std::string, 11>& rawValues() {
    static const std::array<std::string, 11> values{
        "Adult (18+)",       "Family",          "Couple",       "Friends",
        "Spin The Bottle",   "Is It Cheating?", "Pickup Lines", "Put A Finger Down",
        "Who’s Most Likely", "Dating",          "Ice Breaker",
    };
    return values;
}

} // namespace

const std::string& rawValue(CurrentOption option) {
    return rawValues()[static_cast<std::size_t>(option)];
}

std::optional<CurrentOption> currentOptionFromRawValue(std::string_view text) {
    const auto& values = rawValues();
    const auto found = std::find(values.begin(), values.end(), text);
    if (found == values.end()) {
        return std::nullopt;
    }
    return static_cast<CurrentOption>(found - values.begin());
}

const std::array<CurrentOption, 11>& contentLoadOrder() {
    using enum CurrentOption;
    static constexpr std::array order{Adult_18_Plus,   Friends,      Couple,      Family,
                                      SpinTheBottle,   IsItCheating, PickupLines, PutAFingerDown,
                                      WhoIsMostLikely, Dating,       IceBreaker};
    return order;
}
