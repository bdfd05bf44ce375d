#pragma once

#include "platform/interface/InterfaceDocument.h"

#include <filesystem>
#include <map>
#include <memory>

/// Parsed documents by path, so that a nib is parsed once however often it is instantiated. A file that has changed
/// since is parsed again. Shared by all nibs and storyboards of a provider.
class DocumentCache {
public:
    [[nodiscard]] LoadedDocument load(const std::filesystem::path& path);

private:
    struct Entry {
        std::filesystem::file_time_type changed;
        std::shared_ptr<const InterfaceDocument> document;
    };
    std::map<std::filesystem::path, Entry> m_entries;
};
