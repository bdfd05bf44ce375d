#pragma once

#include "platform/foundation/JSONDocument.h"
#include "simulator/check/Slips.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A value of a text that was read tolerantly, with where it begins: what was probably meant.
struct TolerantValue {
    JSONKind kind = JSONKind::null;
    std::size_t offset = 0;
    std::string text{};                                      // of a string, or a number as it is written
    bool flag = false;                                       // of a boolean
    bool isWhole = true;                                     // false: of a container that is not closed
    std::vector<TolerantValue> elements{};                   // of an array; of an object its values
    std::vector<std::pair<std::size_t, std::string>> keys{}; // of an object, where they begin, as `elements`
};

/// Reads JSON as a person writes it: tells what is wrong in plain words, guesses what was meant and reads on. For
/// checks only; JSONDocument decides what is JSON, and the two agree on that. `text` has no byte order mark.
[[nodiscard]] TolerantValue readTolerantly(std::string_view text, Slips& slips);
