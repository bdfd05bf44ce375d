#pragma once

#include "platform/foundation/Result.h"
#include "platform/graphics/Bitmap.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

/// What is done about golden pictures and trees, those that were found good once.
enum class Goldens {
    compare, // a missing one is recorded, and that is a failure
    renew,   // all are taken anew
    onlyRead // a missing one is only told: nobody would look at it
};

/// Where the pictures of a flow go.
struct PictureSettings {
    std::filesystem::path output = "out";
    Goldens goldens = Goldens::compare;
    bool showsFailures = false; // each failed command leaves a picture and the tree there
};

/// Why a golden file that is missing fails; it is recorded where that is wanted.
[[nodiscard]] Failure missingGolden(const std::filesystem::path& golden, Goldens goldens,
                                    const std::function<std::optional<Failure>()>& record);

/// Absent when size and all pixels are those of the golden file, or when it has been renewed. What differs is left as
/// NAME.expected.png, NAME.actual.png and NAME.diff.png in the output folder.
[[nodiscard]] std::optional<Failure> compareWithGolden(const Bitmap& actual, const std::filesystem::path& golden,
                                                       const std::string& name, const PictureSettings& settings);
