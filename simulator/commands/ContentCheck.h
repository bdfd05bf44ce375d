#pragma once

#include "simulator/findings/Finding.h"

#include <filesystem>
#include <vector>

/// What is wrong with one content file: that it cannot be read as a mode list, or an icon that the asset catalogue
/// lacks.
[[nodiscard]] std::vector<Finding> checkContent(const std::filesystem::path& file);
