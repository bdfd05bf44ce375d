#include "platform/interface/DocumentCache.h"

LoadedDocument DocumentCache::load(const std::filesystem::path& path) {
    std::error_code error;
    const auto changed = std::filesystem::last_write_time(path, error);
    const auto known = m_entries.find(path);
    if (!error && known != m_entries.end() && known->second.changed == changed) {
        return {known->second.document, {}};
    }
    LoadedDocument loaded = InterfaceDocument::load(path);
    if (loaded.document && !error) {
        m_entries[path] = {changed, loaded.document};
    }
    return loaded;
}
