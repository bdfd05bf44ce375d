#include "platform/interface/CatalogEntries.h"

#include <algorithm>

namespace {

void collect(const std::filesystem::path& folder, int depth, std::vector<CatalogEntry>& entries) {
    constexpr int deepest = 16; // links could run in a circle
    std::error_code error;
    for (const auto& item : std::filesystem::directory_iterator(folder, error)) {
        if (!item.is_directory(error)) {
            continue;
        }
        if (item.path().has_extension()) {
            entries.push_back({item.path(), item.path().stem().string()});
        } else if (depth < deepest) {
            collect(item.path(), depth + 1, entries);
        }
    }
}

} // namespace

std::vector<CatalogEntry> catalogEntries(const std::filesystem::path& catalog) {
    std::vector<CatalogEntry> entries;
    collect(catalog, 0, entries);
    std::sort(entries.begin(), entries.end(),
              [](const CatalogEntry& one, const CatalogEntry& other) { return one.folder < other.folder; });
    return entries;
}
