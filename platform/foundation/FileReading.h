#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>
#include <optional>
#include <string>

/// The bytes of a regular file. The error names the file and the reason: The file “Family.json” couldn’t be opened:
/// Permission denied. Folders, pipes and devices are errors and never block. Any thread.
[[nodiscard]] Result<std::string> readWholeFile(const std::filesystem::path& path);
/// The same into a text whose memory is used again; after a failure it holds anything.
[[nodiscard]] std::optional<Failure> readWholeFile(const std::filesystem::path& path, std::string& text);
