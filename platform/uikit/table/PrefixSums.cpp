#include "platform/uikit/table/PrefixSums.h"

namespace {

std::size_t lowestBit(std::size_t number) {
    return number & (~number + 1);
}

} // namespace

void PrefixSums::add(std::size_t index, std::int64_t amount) {
    if (amount == 0) {
        return;
    }
    for (std::size_t number = index + 1; number <= m_count; number += lowestBit(number)) {
        m_nodes[number] += amount;
    }
}

std::int64_t PrefixSums::sum(std::size_t count) const {
    std::int64_t total = 0;
    for (std::size_t number = count; number > 0; number -= lowestBit(number)) {
        total += node(number);
    }
    return total;
}

std::int64_t PrefixSums::node(std::size_t number) const {
    const auto found = m_nodes.find(number);
    return found == m_nodes.end() ? 0 : found->second;
}
