#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

/// Keeps what was used last, by name, up to a total cost; what was not used longest goes first. One entry that alone
/// costs more than the whole is not kept.
template <class Value>
class RecentCache {
public:
    explicit RecentCache(std::size_t capacity) : m_capacity(capacity) {}

    /// Null when it is not (or no longer) kept. Valid until the next insertion.
    [[nodiscard]] const Value* find(std::string_view key) {
        const auto found = m_index.find(key);
        if (found == m_index.end()) {
            return nullptr;
        }
        m_entries.splice(m_entries.begin(), m_entries, found->second);
        return &found->second->value;
    }

    /// `key` must not be kept yet.
    void insert(std::string key, Value value, std::size_t cost) {
        if (cost > m_capacity) {
            return;
        }
        m_entries.push_front({std::move(key), std::move(value), cost});
        m_index.emplace(m_entries.front().key, m_entries.begin());
        m_cost += cost;
        while (m_cost > m_capacity) {
            m_cost -= m_entries.back().cost;
            m_index.erase(m_entries.back().key);
            m_entries.pop_back();
        }
    }

private:
    struct Entry {
        std::string key;
        Value value;
        std::size_t cost;
    };

    std::size_t m_capacity;
    std::size_t m_cost = 0;
    std::list<Entry> m_entries;
    /// Views of the entries' own keys.
    std::unordered_map<std::string_view, typename std::list<Entry>::iterator> m_index;
};
