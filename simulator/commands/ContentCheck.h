#pragma once

#include "platform/foundation/Finding.h"

#include <filesystem>
#include <vector>

/// What is wrong with one content file: that it cannot be read as a mode list, or an icon that the asset catalogue
/// lacks.
[[nodiscard]] Findings checkContent(const std::filesystem::path& file);
