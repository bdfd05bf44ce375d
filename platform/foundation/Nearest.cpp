#include "platform/foundation/Nearest.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace {

char lower(char letter) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

/// Letters to insert, delete, replace or swap with their neighbour.
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> beforeLast(b.size() + 1);
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    const auto same = [&](std::size_t i, std::size_t j) { return lower(a[i]) == lower(b[j]); };
    for (std::size_t i = 0; i < a.size(); ++i) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = last[j] + (same(i, j) ? 0u : 1u);
            row[j + 1] = std::min({replaced, row[j] + 1, last[j + 1] + 1});
            if (i > 0 && j > 0 && same(i, j - 1) && same(i - 1, j)) {
                row[j + 1] = std::min(row[j + 1], beforeLast[j - 1] + 1);
            }
        }
    }
    return row[b.size()];
}

/// "dice" of "icon_dice" and "Title" of "sectionTitle".
std::string_view lastWord(std::string_view name) {
    std::size_t at = name.size();
    while (at > 0 && (std::isalnum(static_cast<unsigned char>(name[at - 1])) != 0)) {
        --at;
        if (std::isupper(static_cast<unsigned char>(name[at])) != 0) {
            break;
        }
    }
    return name.substr(at);
}

/// Of short ones every two are near.
std::size_t wordDistance(std::string_view a, std::string_view b) {
    constexpr std::size_t shortest = 4;
    return std::min(a.size(), b.size()) < shortest ? shortest : editDistance(a, b);
}

/// Keeps the name when it is nearer than the best so far.
struct Best {
    std::optional<std::string> name;
    std::size_t distance;

    void consider(std::size_t other, const std::string& candidate) {
        if (other < distance) {
            distance = other;
            name = candidate;
        }
    }
};

} // namespace

std::optional<std::string> nearestName(std::string_view wanted, const std::vector<std::string>& known) {
    // Longer texts are not names; comparing them would cost more than the hint is worth.
    constexpr std::size_t longest = 200;
    Best whole{std::nullopt, std::max<std::size_t>(2, wanted.size() / 3) + 1};
    Best word{std::nullopt, 2};
    for (const std::string& name : known) {
        if (wanted.size() > longest || name.size() > longest) {
            continue;
        }
        const std::size_t distance = editDistance(wanted, name);
        if (distance < std::max(wanted.size(), name.size())) {
            whole.consider(distance, name);
        }
        word.consider(wordDistance(wanted, lastWord(name)), name);
        word.consider(wordDistance(lastWord(wanted), name), name);
    }
    return whole.name ? whole.name : word.name;
}

std::string suggestion(std::string_view wanted, const std::vector<std::string>& known) {
    const std::optional<std::string> nearest = nearestName(wanted, known);
    return nearest ? "; did you mean " + *nearest + "?" : "";
}
