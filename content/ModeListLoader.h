#pragma once

#include "content/ModeSection.h"

#include <optional>
#include <string>
#include <vector>

/// Reads the content file of a content key from the main bundle. Nothing when the file is missing or cannot be read or
/// decoded; then one line on the debug console says so. Holds no state; any thread.
[[nodiscard]] std::optional<std::vector<ModeSection>> loadModeSections(const std::string& fileName);
/// The same for one of several files that are read one after another, into memory that is used again for the next.
[[nodiscard]] std::optional<std::vector<ModeSection>> loadModeSections(const std::string& fileName, std::string& text);
