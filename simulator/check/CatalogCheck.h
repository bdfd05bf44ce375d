#pragma once

#include "platform/foundation/Finding.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// What is wrong with the sets of a catalogue, and the files that they name.
[[nodiscard]] Findings checkCatalog(const std::filesystem::path& catalog);

/// Whether the main bundle has a catalogue.
[[nodiscard]] bool hasCatalog();
/// The names of the sets of a kind (".imageset") in the main bundle's catalogue, sound or not.
[[nodiscard]] std::vector<std::string> setsOfCatalog(std::string_view extension);
/// Those of the images that lists can name, sorted.
[[nodiscard]] std::vector<std::string> iconNames();
/// Whether a colour set there has a colour for the dark appearance; also when there is none of that name.
[[nodiscard]] bool followsDark(std::string_view name);
