#pragma once

#include "platform/foundation/Nearest.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A fixed set of words that documents use, each with its meaning.
template <class Meaning, std::size_t count>
using WordTable = std::array<std::pair<std::string_view, Meaning>, count>;

/// Null for a word that the table lacks.
template <class Meaning, std::size_t count>
[[nodiscard]] const Meaning* meaningOf(std::string_view word, const WordTable<Meaning, count>& table) {
    for (const auto& [known, meaning] : table) {
        if (known == word) {
            return &meaning;
        }
    }
    return nullptr;
}

/// "; did you mean WORD?", or nothing.
template <class Meaning, std::size_t count>
[[nodiscard]] std::string suggestionFrom(std::string_view word, const WordTable<Meaning, count>& table) {
    std::vector<std::string> known;
    for (const auto& entry : table) {
        known.emplace_back(entry.first);
    }
    return suggestion(word, known);
}
