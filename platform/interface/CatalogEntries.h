#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// One set of an asset catalogue: its folder ("NAME.imageset") and the name it is asked for by.
struct CatalogEntry {
    std::filesystem::path folder;
    std::string name;
};

/// All sets of a catalogue, those in groups included, sorted by path. Nothing for a folder that cannot be read.
[[nodiscard]] std::vector<CatalogEntry> catalogEntries(const std::filesystem::path& catalog);
