#pragma once

#include "platform/foundation/Result.h"
#include "platform/graphics/Bitmap.h"

#include <filesystem>
#include <optional>
#include <string>

/// Where the pictures of a flow go and what to do about golden ones, those that were found good once.
struct PictureSettings {
    std::filesystem::path output = "out";
    bool updateGoldens = false;
};

/// Absent when size and all pixels are those of the golden file; a missing one is recorded, and that is a failure too.
/// What differs is left as NAME.expected.png, NAME.actual.png and NAME.diff.png in the output folder.
[[nodiscard]] std::optional<Failure> compareWithGolden(const Bitmap& actual, const std::filesystem::path& golden,
                                                       const std::string& name, const PictureSettings& settings);
