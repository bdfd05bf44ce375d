#pragma once

#include "platform/foundation/JSONDocument.h"

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
    std::vector<TolerantValue> elements{};                   // of an array; of an object its values
    std::vector<std::pair<std::size_t, std::string>> keys{}; // of an object, where they begin, as `elements`
};

/// Something that is no JSON, in words for somebody who is no programmer.
struct JSONSlip {
    std::string_view rule;
    std::size_t offset = 0; // in bytes
    std::string what;
};

struct TolerantReading {
    TolerantValue root;
    std::vector<JSONSlip> slips; // sorted by offset; empty for sound JSON
};

/// Reads JSON as a person writes it: tells what is wrong in plain words, guesses what was meant and reads on. For
/// checks only; JSONDocument decides what is JSON, and the two agree on that. `text` has no byte order mark. After
/// a hundred slips it reads no further.
[[nodiscard]] TolerantReading readTolerantly(std::string_view text);

/// Where the first byte stands that is no UTF-8; npos when there is none.
[[nodiscard]] std::size_t firstInvalidUTF8(std::string_view text);
