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

} // namespace

std::string suggestion(std::string_view wanted, const std::vector<std::string>& known) {
    // Longer texts are not names; comparing them would cost more than the hint is worth.
    constexpr std::size_t longest = 200;
    const std::string* nearest = nullptr;
    std::size_t best = std::max<std::size_t>(2, wanted.size() / 3) + 1;
    for (const std::string& name : known) {
        if (wanted.size() > longest || name.size() > longest) {
            continue;
        }
        const std::size_t distance = editDistance(wanted, name);
        if (distance < best && distance < std::max(wanted.size(), name.size())) {
            best = distance;
            nearest = &name;
        }
    }
    return nearest == nullptr ? "" : "; did you mean " + *nearest + "?";
}
