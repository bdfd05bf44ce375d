#include "simulator/pictures/PictureComparison.h"

#include "platform/graphics/PNG.h"

#include <algorithm>
#include <cstdio>

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t red = 0xFFE00000;

bool has(const Bitmap& bitmap, int x, int y) {
    return x < bitmap.width() && y < bitmap.height();
}

/// An opaque pixel at a quarter of its strength on white.
std::uint32_t faded(std::uint32_t pixel) {
    std::uint32_t result = 0xFF000000;
    for (const int shift : {0, 8, 16}) {
        result |= (192 + ((pixel >> shift) & 0xFFu) / 4) << shift;
    }
    return result;
}

std::string sizeOf(const Bitmap& bitmap) {
    return std::to_string(bitmap.width()) + " x " + std::to_string(bitmap.height());
}

std::string describe(const PictureDifference& difference, const Bitmap& expected, const Bitmap& actual) {
    char numbers[120];
    std::snprintf(numbers, sizeof numbers, "the first differing pixel is (%d, %d), %zu differ in all, %.4f %%",
                  difference.x, difference.y, difference.count, difference.percentage);
    const bool sameSize = expected.width() == actual.width() && expected.height() == actual.height();
    return (sameSize ? "" : "its size is " + sizeOf(actual) + " pixels, not " + sizeOf(expected) + "; ") +
           std::string(numbers);
}

std::optional<Failure> leavePictures(const Golden& golden, const Bitmap& expected, const Bitmap& actual,
                                     const Bitmap& difference) {
    const auto file = [&](const char* kind) { return golden.output / (golden.name + "." + kind + ".png"); };
    for (const auto& [kind, picture] :
         {std::pair("expected", &expected), std::pair("actual", &actual), std::pair("diff", &difference)}) {
        if (std::optional<Failure> failure = savePicture(*picture, file(kind))) {
            return failure;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<PictureDifference> differenceBetween(const Bitmap& expected, const Bitmap& actual) {
    const int width = std::max(expected.width(), actual.width());
    const int height = std::max(expected.height(), actual.height());
    PictureDifference difference{.picture = Bitmap(width, height)};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool both = has(expected, x, y) && has(actual, x, y);
            const bool same = both && expected.pixel(x, y) == actual.pixel(x, y);
            difference.picture.row(y)[x] = same ? faded(expected.pixel(x, y)) : red;
            if (!same && difference.count++ == 0) {
                difference.x = x;
                difference.y = y;
            }
        }
    }
    if (difference.count == 0) {
        return std::nullopt;
    }
    difference.percentage = 100.0 * static_cast<double>(difference.count) / (static_cast<double>(width) * height);
    return difference;
}

std::optional<Failure> savePicture(const Bitmap& picture, const fs::path& file) {
    std::error_code error;
    if (file.has_parent_path()) {
        fs::create_directories(file.parent_path(), error);
    }
    if (const std::optional<std::string> problem = writePNG(picture, file.string())) {
        return Failure{"cannot write " + file.string() + ": " + *problem};
    }
    return std::nullopt;
}

std::optional<Failure> compareWithGolden(const Bitmap& actual, const Golden& golden) {
    std::error_code error;
    const bool missing = !fs::exists(golden.file, error);
    if (missing || golden.update) {
        std::optional<Failure> failure = savePicture(actual, golden.file);
        if (!failure && missing && !golden.update) {
            failure = Failure{"there was no " + golden.file.string() +
                              ": it has been recorded; look at it, then play the flow again"};
        }
        return failure;
    }
    const PNGReading expected = readPNG(golden.file.string());
    if (!expected.bitmap) {
        return Failure{"cannot read " + golden.file.string() + ": " + expected.error};
    }
    const std::optional<PictureDifference> difference = differenceBetween(*expected.bitmap, actual);
    if (!difference) {
        return std::nullopt;
    }
    std::string message =
        "the screen is not that of " + golden.file.string() + ": " + describe(*difference, *expected.bitmap, actual);
    const std::optional<Failure> failure = leavePictures(golden, *expected.bitmap, actual, difference->picture);
    return Failure{
        message + "\n      " +
        (failure ? failure->what : "see " + (golden.output / golden.name).string() + ".{expected,actual,diff}.png")};
}
