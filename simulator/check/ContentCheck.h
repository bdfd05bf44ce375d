#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>

/// What is wrong with one content file: that it is no mode list, or icons that the asset catalogue lacks. Fails when
/// the file cannot be read at all.
[[nodiscard]] Result<Findings> checkContent(const std::filesystem::path& file);
