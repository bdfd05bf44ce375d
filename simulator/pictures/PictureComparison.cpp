#include "simulator/pictures/PictureComparison.h"

#include "platform/graphics/PNG.h"
#include "simulator/pictures/PictureFile.h"

#include <algorithm>
#include <cstdio>

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t red = 0xFFE00000;

/// How two pictures differ. A pixel that only one of them has counts as different.
struct PictureDifference {
    int x = 0; // the first differing pixel, row by row
    int y = 0;
    std::size_t count = 0;
    Bitmap picture; // what differs in red on a faded copy
};

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

/// The count is 0 when size and all pixels are equal.
PictureDifference differenceBetween(const Bitmap& expected, const Bitmap& actual) {
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
    return difference;
}

std::string sizeOf(const Bitmap& bitmap) {
    return std::to_string(bitmap.width()) + " x " + std::to_string(bitmap.height());
}

std::string describe(const PictureDifference& difference, const Bitmap& expected, const Bitmap& actual) {
    const double all = static_cast<double>(difference.picture.width()) * difference.picture.height();
    char numbers[120];
    std::snprintf(numbers, sizeof numbers, "the first differing pixel is (%d, %d), %zu differ in all, %.4f %%",
                  difference.x, difference.y, difference.count, 100.0 * static_cast<double>(difference.count) / all);
    const bool sameSize = expected.width() == actual.width() && expected.height() == actual.height();
    return (sameSize ? "" : "its size is " + sizeOf(actual) + " pixels, not " + sizeOf(expected) + "; ") +
           std::string(numbers);
}

/// Leaves the pictures for people to look at and says where.
std::string leavePictures(const fs::path& start, const Bitmap& expected, const Bitmap& actual,
                          const Bitmap& difference) {
    for (const auto& [kind, picture] :
         {std::pair("expected", &expected), std::pair("actual", &actual), std::pair("diff", &difference)}) {
        if (const std::optional<Failure> failure = savePicture(*picture, start.string() + "." + kind + ".png")) {
            return failure->what;
        }
    }
    return "see " + start.string() + ".{expected,actual,diff}.png";
}

} // namespace

Failure missingGolden(const fs::path& golden, Goldens goldens, const std::function<std::optional<Failure>()>& record) {
    if (goldens == Goldens::onlyRead) {
        return {"there is no " + golden.string() + ", and none is recorded where CI is set in the environment"};
    }
    return record().value_or(
        Failure{"there was no " + golden.string() + ": it has been recorded; look at it, then play the flow again"});
}

std::optional<Failure> compareWithGolden(const Bitmap& actual, const fs::path& golden, const std::string& name,
                                         const PictureSettings& settings) {
    std::error_code error;
    if (settings.goldens == Goldens::renew) {
        return savePicture(actual, golden);
    }
    if (!fs::exists(golden, error)) {
        return missingGolden(golden, settings.goldens, [&] { return savePicture(actual, golden); });
    }
    const Result<Bitmap> expected = readPNG(golden.string());
    if (!expected) {
        return Failure{"cannot read " + golden.string() + ": " + expected.failure().what};
    }
    const PictureDifference difference = differenceBetween(expected.value(), actual);
    if (difference.count == 0) {
        return std::nullopt;
    }
    return Failure{"the screen is not that of " + golden.string() + ": " +
                   describe(difference, expected.value(), actual) + "\n      " +
                   leavePictures(settings.output / name, expected.value(), actual, difference.picture)};
}
