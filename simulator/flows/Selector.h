#pragma once

#include "simulator/flows/FlowValue.h"

#include <optional>
#include <string>

/// Which element of the screen a command means. Text and id match literally or else as a whole regular expression,
/// letter case aside; all that are given must hold.
struct Selector {
    std::optional<std::string> text;
    std::optional<std::string> id;
    std::optional<int> index; // among all that match, from top to bottom, then left to right; counted from 0
};

/// `"Friends"` or `{text: …, id: …, index: …}`.
[[nodiscard]] Selector readSelector(const FlowValue& value);
/// The part of a larger map that readSelector would read; the caller has checked the keys.
[[nodiscard]] Selector readSelectorKeys(const FlowValue& map);
/// For messages: 'Friends', id 'back', 'Play' number 2.
[[nodiscard]] std::string describe(const Selector& selector);
