#include "platform/graphics/cairo/ScaledImages.h"

#include "platform/graphics/ImageDecoder.h"

#include <cairo.h>

#include <utility>

namespace {

/// What an entry costs beside its pixels.
constexpr std::size_t entryBytes = 256;

Bitmap scaled(const Bitmap& source, int width, int height) {
    Bitmap result(width, height);
    cairo_surface_t* from = surfaceOver(source);
    cairo_surface_t* to = surfaceOver(result);
    cairo_t* context = cairo_create(to);
    cairo_scale(context, static_cast<double>(width) / source.width(), static_cast<double>(height) / source.height());
    cairo_set_source_surface(context, from, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_GOOD);
    cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    cairo_paint(context);
    cairo_destroy(context);
    cairo_surface_destroy(to);
    cairo_surface_destroy(from);
    return result;
}

std::shared_ptr<const Bitmap> load(const std::string& path, int width, int height) {
    Result<Bitmap> picture = ImageDecoder::shared().take(path);
    if (!picture) {
        return nullptr;
    }
    const bool fits = picture.value().width() == width && picture.value().height() == height;
    return std::make_shared<const Bitmap>(fits ? std::move(picture).value() : scaled(picture.value(), width, height));
}

} // namespace

cairo_surface_t* surfaceOver(const Bitmap& bitmap) {
    auto* pixels = reinterpret_cast<unsigned char*>(const_cast<std::uint32_t*>(bitmap.row(0)));
    return cairo_image_surface_create_for_data(pixels, CAIRO_FORMAT_ARGB32, bitmap.width(), bitmap.height(),
                                               bitmap.stride());
}

ScaledImages& ScaledImages::shared() {
    static ScaledImages images;
    return images;
}

std::shared_ptr<const Bitmap> ScaledImages::find(const std::string& path, int width, int height) {
    std::string key = std::to_string(width) + 'x' + std::to_string(height) + ' ' + path;
    if (const auto* kept = m_kept.find(key)) {
        return *kept;
    }
    std::shared_ptr<const Bitmap> image = load(path, width, height);
    const std::size_t bytes = image == nullptr ? 0 : image->pixels().size_bytes();
    m_kept.insert(std::move(key), image, bytes + entryBytes);
    return image;
}
