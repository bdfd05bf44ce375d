#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

/// Sums over the first entries of a long list of whole numbers of which few are not zero (a Fenwick tree that stores
/// only the nodes it needed). A change, a sum and a search cost O(log n); memory grows with the entries changed.
class PrefixSums {
public:
    explicit PrefixSums(std::size_t count = 0) : m_count(count) {}

    void add(std::size_t index, std::int64_t amount);
    /// The sum of the first `count` entries.
    [[nodiscard]] std::int64_t sum(std::size_t count) const;
    void clear() { m_nodes.clear(); }

    /// The largest number n of entries for which base(n) + sum(n) <= limit; base(n) + sum(n) must not fall with n.
    template <class Base>
    [[nodiscard]] std::size_t countWithin(std::int64_t limit, Base base) const;

private:
    [[nodiscard]] std::int64_t node(std::size_t number) const;

    std::size_t m_count;
    std::unordered_map<std::size_t, std::int64_t> m_nodes; // node n sums the entries that end with the n-th
};

template <class Base>
std::size_t PrefixSums::countWithin(std::int64_t limit, Base base) const {
    std::size_t step = 1;
    while (step <= m_count / 2) {
        step *= 2;
    }
    std::size_t found = 0;
    std::int64_t sumFound = 0;
    for (; step > 0; step /= 2) {
        const std::size_t next = found + step;
        if (next <= m_count && base(next) + sumFound + node(next) <= limit) {
            found = next;
            sumFound += node(next);
        }
    }
    return found;
}
