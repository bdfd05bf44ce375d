#include "platform/graphics/PNG.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/FileReading.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>

namespace {

constexpr std::uint32_t longestSide = 8192;
constexpr std::uint64_t mostPixels = std::uint64_t{1} << 24;

constexpr std::uint32_t alphaOf(std::uint32_t pixel) {
    return pixel >> 24;
}

bool isAcceptable(std::uint32_t width, std::uint32_t height) {
    return width > 0 && height > 0 && width <= longestSide && height <= longestSide &&
           std::uint64_t{width} * height <= mostPixels;
}

bool isOpaque(const Bitmap& bitmap) {
    return std::all_of(bitmap.pixels().begin(), bitmap.pixels().end(),
                       [](std::uint32_t pixel) { return alphaOf(pixel) == 255; });
}

std::uint8_t unpremultiplied(std::uint32_t pixel, int shift) {
    const std::uint32_t alpha = alphaOf(pixel);
    const std::uint32_t value = (pixel >> shift) & 255;
    return static_cast<std::uint8_t>(alpha == 0 ? 0 : std::min(255U, (value * 255 + alpha / 2) / alpha));
}

std::uint32_t premultiplied(std::uint32_t value, std::uint32_t alpha) {
    const std::uint32_t product = value * alpha + 128;
    return (product + (product >> 8)) >> 8;
}

void writeRow(const Bitmap& bitmap, int y, bool opaque, std::vector<std::uint8_t>& bytes) {
    const std::uint32_t* row = bitmap.row(y);
    std::uint8_t* out = bytes.data();
    for (int x = 0; x < bitmap.width(); ++x) {
        const std::uint32_t pixel = row[x];
        for (const int shift : {16, 8, 0}) {
            *out++ = opaque ? static_cast<std::uint8_t>(pixel >> shift) : unpremultiplied(pixel, shift);
        }
        if (!opaque) {
            *out++ = static_cast<std::uint8_t>(alphaOf(pixel));
        }
    }
}

void append(png_structp png, png_bytep data, std::size_t length) {
    auto* file = static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(png));
    try {
        file->insert(file->end(), data, data + length);
    } catch (const std::bad_alloc&) {
        png_error(png, "no memory for the file"); // libpng is no place to throw through
    }
}

void flushNothing(png_structp) {}

/// Writing to memory fails for no reason that a caller could mend; libpng wants no return.
[[noreturn]] void stop(png_structp, png_const_charp message) {
    fatalError(std::string("PNG encoder: ") + message);
}

void configure(png_structp png, png_infop info, const Bitmap& bitmap, bool opaque) {
    png_set_IHDR(png, info, static_cast<png_uint_32>(bitmap.width()), static_cast<png_uint_32>(bitmap.height()), 8,
                 opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_set_sRGB(png, info, PNG_sRGB_INTENT_PERCEPTUAL);
    png_set_compression_level(png, 1);
    png_set_compression_buffer_size(png, std::size_t{1} << 16);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
}

/// From bytes in the order blue, green, red, alpha, in place.
void premultiplyRows(Bitmap& bitmap) {
    for (int y = 0; y < bitmap.height(); ++y) {
        std::uint32_t* row = bitmap.row(y);
        for (int x = 0; x < bitmap.width(); ++x) {
            std::array<std::uint8_t, 4> bytes{};
            std::memcpy(bytes.data(), row + x, bytes.size());
            const std::uint32_t alpha = bytes[3];
            if (alpha == 0) { // most of an icon
                row[x] = 0;
                continue;
            }
            row[x] = (alpha << 24) | (premultiplied(bytes[2], alpha) << 16) | (premultiplied(bytes[1], alpha) << 8) |
                     premultiplied(bytes[0], alpha);
        }
    }
}

/// The library's own words are for programmers.
Failure unreadable(const std::string& bytes) {
    const bool isPNG = bytes.compare(0, 8, "\x89PNG\r\n\x1A\n") == 0;
    const bool isWhole = bytes.find("IEND") != std::string::npos;
    return Failure{!isPNG ? "it is no PNG picture" : isWhole ? "it is damaged" : "the end of the picture is missing"};
}

Result<Bitmap> readPixels(png_image& image, const std::string& bytes) {
    if (std::optional<Failure> failure = pictureSizeRefusal(image.width, image.height)) {
        return *std::move(failure);
    }
    Result<Bitmap> bitmap = Bitmap::make(static_cast<int>(image.width), static_cast<int>(image.height));
    if (!bitmap) {
        return bitmap;
    }
    image.format = PNG_FORMAT_BGRA;
    if (png_image_finish_read(&image, nullptr, bitmap.value().row(0), bitmap.value().stride(), nullptr) == 0) {
        return unreadable(bytes);
    }
    premultiplyRows(bitmap.value());
    return bitmap;
}

} // namespace

std::optional<Failure> pictureSizeRefusal(std::uint32_t width, std::uint32_t height) {
    if (isAcceptable(width, height)) {
        return std::nullopt;
    }
    return Failure{"a picture of " + std::to_string(width) + " x " + std::to_string(height) + " pixels; at most " +
                   std::to_string(longestSide) + " a side and " + std::to_string(mostPixels) + " in all can be read"};
}

std::vector<std::uint8_t> encodePNG(const Bitmap& bitmap) {
    std::vector<std::uint8_t> file;
    if (bitmap.pixels().empty()) {
        return file;
    }
    const bool opaque = isOpaque(bitmap);
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, stop, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &file, append, flushNothing);
    configure(png, info, bitmap, opaque);
    png_write_info(png, info);
    std::vector<std::uint8_t> row(static_cast<std::size_t>(bitmap.width()) * 4);
    for (int y = 0; y < bitmap.height(); ++y) {
        writeRow(bitmap, y, opaque, row);
        png_write_row(png, row.data());
    }
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

std::optional<Failure> writePNG(const Bitmap& bitmap, const std::string& path) {
    const std::vector<std::uint8_t> bytes = encodePNG(bitmap);
    if (bytes.empty()) {
        return Failure{"the picture has no pixels"};
    }
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return file.fail() ? std::optional(Failure{std::strerror(errno)}) : std::nullopt;
}

Result<Bitmap> readPNG(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    const Result<std::string> bytes = readWholeFile(path);
    if (!bytes) {
        return bytes.failure();
    }
    if (bytes.value().empty()) {
        return Failure{"it is empty"};
    }
    if (png_image_begin_read_from_memory(&image, bytes.value().data(), bytes.value().size()) == 0) {
        return unreadable(bytes.value());
    }
    Result<Bitmap> bitmap = readPixels(image, bytes.value());
    png_image_free(&image);
    return bitmap;
}

std::optional<PixelSize> readPNGSize(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) { // opening a pipe would wait for whoever writes to it
        return std::nullopt;
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    png_image_begin_read_from_file(&image, path.c_str()); // a failure leaves it without a size
    png_image_free(&image);
    return isAcceptable(image.width, image.height)
               ? std::optional(PixelSize{static_cast<int>(image.width), static_cast<int>(image.height)})
               : std::nullopt;
}
