#pragma once

#include "platform/foundation/Result.h"
#include "platform/graphics/Bitmap.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

/// How two pictures differ. A pixel that only one of them has counts as different.
struct PictureDifference {
    int x = 0; // the first differing pixel, row by row
    int y = 0;
    std::size_t count = 0;
    double percentage = 0;
    Bitmap picture; // what differs in red on a faded copy
};

/// Absent when size and all pixels are equal.
[[nodiscard]] std::optional<PictureDifference> differenceBetween(const Bitmap& expected, const Bitmap& actual);

/// A picture that was found good once, and what to do when it is not met.
struct Golden {
    std::filesystem::path file;
    std::filesystem::path output; // the folder for NAME.expected.png, NAME.actual.png and NAME.diff.png
    std::string name;
    bool update = false;
};

/// Absent when the picture is the golden one. A missing golden is recorded, and that is a failure too.
[[nodiscard]] std::optional<Failure> compareWithGolden(const Bitmap& actual, const Golden& golden);

/// Writes a picture, with the folders it needs. Absent when it was written.
[[nodiscard]] std::optional<Failure> savePicture(const Bitmap& picture, const std::filesystem::path& file);
