#pragma once

#include "platform/foundation/TextPlaces.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Gathers what is to be mended in one text, by offset, while it is read and checked. Nobody is told the same thing
/// four hundred times: a mistake of habit, which one search and replace mends, becomes a single finding with its count,
/// and of every other rule a hundred are told.
class Slips {
public:
    enum class Kind { single, habit };

    /// `where` leads the words and may differ from one slip of a habit to the next: "section 1, item 2: ".
    void tell(std::string_view rule, std::size_t offset, std::string what, Kind kind = Kind::single,
              const std::string& where = "");
    [[nodiscard]] bool empty() const { return m_slips.empty(); }
    /// Forgets those of this rule at this offset: something better is known.
    void forget(std::string_view rule, std::size_t offset);
    void clear();

    [[nodiscard]] Findings findings(const TextPlaces& places, const std::string& path) const;

private:
    struct Slip {
        std::string_view rule;
        std::size_t offset;
        std::string what;
        std::string group;
    };
    struct Group {
        Kind kind = Kind::single;
        std::size_t count = 0;
        std::size_t last = 0; // offset

        [[nodiscard]] std::size_t most() const { return kind == Kind::habit ? 3 : 100; }
        /// What is said behind the words of the number-th slip of it.
        [[nodiscard]] std::string remark(std::size_t number, const TextPlaces& places) const;
    };

    std::vector<Slip> m_slips;
    std::map<std::string, Group, std::less<>> m_groups;
};
