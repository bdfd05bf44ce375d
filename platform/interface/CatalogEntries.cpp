#include "platform/interface/CatalogEntries.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/JSONDocument.h"

#include <algorithm>

namespace {

bool providesNamespace(const std::filesystem::path& group) {
    const Result<std::string> text = readWholeFile(group / "Contents.json");
    if (!text) {
        return false;
    }
    const Result<JSONDocument> document = JSONDocument::parse(text.value());
    if (!document) {
        return false;
    }
    const auto properties = document.value().root().find("properties");
    const auto provides = properties ? properties->find("provides-namespace") : std::nullopt;
    return provides && provides->boolean().value_or(false);
}

void collect(const std::filesystem::path& folder, const std::string& prefix, int depth,
             std::vector<CatalogEntry>& entries) {
    constexpr int deepest = 16; // links could run in a circle
    std::error_code error;
    for (const auto& item : std::filesystem::directory_iterator(folder, error)) {
        if (!item.is_directory(error)) {
            continue;
        }
        if (item.path().has_extension()) {
            entries.push_back({item.path(), prefix + item.path().stem().string()});
        } else if (depth < deepest) {
            const std::string group = providesNamespace(item.path()) ? item.path().filename().string() + "/" : "";
            collect(item.path(), prefix + group, depth + 1, entries);
        }
    }
}

} // namespace

std::vector<CatalogEntry> catalogEntries(const std::filesystem::path& catalog) {
    std::vector<CatalogEntry> entries;
    collect(catalog, "", 0, entries);
    std::sort(entries.begin(), entries.end(),
              [](const CatalogEntry& one, const CatalogEntry& other) { return one.folder < other.folder; });
    return entries;
}
