#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace limit {

struct Item {
    std::string icon;
    std::string title;
    std::string subtitle;
    bool isSelected = false;
};

struct Section {
    std::string title;
    std::vector<Item> items;
};

/// Group name to its sections.
using Content = std::map<std::string, std::vector<Section>>;

/// Reads the eleven files of a folder, the parser's events written straight into the records. Ends the program when a
/// file is missing or broken: this is no product.
[[nodiscard]] Content readContent(const std::filesystem::path& folder);

} // namespace limit
