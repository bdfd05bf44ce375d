#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

/// The page's own files by name; nothing else is ever found. They stand in the program, or, for those who change the
/// page, are read from a folder each time.
[[nodiscard]] std::function<std::optional<std::string>(const std::string& name)>
pageParts(const std::optional<std::filesystem::path>& folder);
