#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Everything that is wrong with one content file, sorted by place: slips of JSON, keys and values, and what a person
/// would want to know of texts and icons. Needs the bundle's catalogue to be the current one. Fails when the file
/// cannot be read at all.
[[nodiscard]] Result<Findings> checkContent(const std::filesystem::path& file);
/// The same for a text; `path` is only told.
[[nodiscard]] Findings checkContentText(std::string_view text, const std::string& path);

/// Whether a file is meant for a list: it ends in .json, in whatever letters, or .json.txt.
[[nodiscard]] bool isNamedAsList(const std::filesystem::path& file);
/// A file that is named nearly as a list of the extension, or, in the extension's bundle, unlike all of them.
enum class ContentPlace { bundle, elsewhere };
[[nodiscard]] Findings checkContentName(const std::filesystem::path& file, ContentPlace place);
