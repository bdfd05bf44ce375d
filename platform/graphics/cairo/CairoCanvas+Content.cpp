// Images and text.
#include "platform/graphics/cairo/CairoCanvas.h"

#include "platform/graphics/TextLines.h"
#include "platform/graphics/UIImage.h"
#include "platform/graphics/cairo/ScaledImages.h"

#include <pango/pangocairo.h>

#include <algorithm>

namespace {

/// Larger images are scaled to this at most and stretched from there; in pixels a side.
constexpr int longestScaledSide = 2048;

int pixelsFor(CGFloat length) {
    return static_cast<int>(std::clamp<CGFloat>(wholePixels.snapped(length), 1, longestScaledSide));
}

} // namespace

void CairoCanvas::drawImage(const UIImage& image, const CGRect& rect) {
    const std::optional<CGRect> bounds = deviceBounds(rect);
    const ImageFile* file = image.fileForScale(m_scale);
    if (!bounds.has_value() || rect.isEmpty() || file == nullptr || !overlapsClip(*bounds)) {
        return;
    }
    const int width = pixelsFor(bounds->size.width);
    const int height = pixelsFor(bounds->size.height);
    const std::shared_ptr<const Bitmap> pixels = ScaledImages::shared().find(file->path, width, height);
    if (pixels == nullptr) {
        return;
    }
    cairo_surface_t* surface = surfaceOver(*pixels);
    paint(bounds->insetBy(-1, -1), [&] {
        cairo_save(m_context.get());
        placeImage(rect, *pixels);
        cairo_set_source_surface(m_context.get(), surface, 0, 0);
        cairo_paint(m_context.get());
        cairo_restore(m_context.get());
    });
    cairo_surface_destroy(surface);
}

std::optional<PixelRect> CairoCanvas::wholePixelsOf(const CGRect& rect) const {
    const std::optional<CGRect> bounds = deviceBounds(rect);
    if (!bounds.has_value() || cairoSteps.snapped(*bounds) != wholePixels.snapped(*bounds) ||
        std::any_of(m_roundedClips.begin(), m_roundedClips.end(),
                    [&](const RoundedRect& shape) { return touchesCorner(shape, *bounds); })) {
        return std::nullopt;
    }
    return wholePixels.inside(wholePixels.snapped(*bounds));
}

void CairoCanvas::replacePixels(const Bitmap& pixels, const PixelRect& area) {
    cairo_surface_t* surface = surfaceOver(pixels);
    cairo_save(m_context.get());
    cairo_set_source_surface(m_context.get(), surface, area.x, area.y);
    cairo_set_operator(m_context.get(), CAIRO_OPERATOR_SOURCE);
    cairo_rectangle(m_context.get(), area.x, area.y, area.width, area.height);
    cairo_fill(m_context.get());
    cairo_restore(m_context.get());
    cairo_surface_destroy(surface);
}

/// Makes one unit one pixel of the image: on whole pixels of the device when the image has as many as its place there.
void CairoCanvas::placeImage(const CGRect& rect, const Bitmap& pixels) {
    const CGRect box = toDevice(rect);
    if (pixels.width() == wholePixels.snapped(box.size.width) &&
        pixels.height() == wholePixels.snapped(box.size.height)) {
        cairo_translate(m_context.get(), wholePixels.snapped(box.minX()), wholePixels.snapped(box.minY()));
        return;
    }
    const CGPoint origin = m_states.back().origin;
    cairo_translate(m_context.get(), origin.x, origin.y);
    cairo_scale(m_context.get(), m_scale, m_scale);
    cairo_translate(m_context.get(), rect.minX(), rect.minY());
    cairo_scale(m_context.get(), rect.size.width / pixels.width(), rect.size.height / pixels.height());
}

void CairoCanvas::drawText(const TextLayout& layout, CGPoint origin, const RGBA& color) {
    if (!(color.alpha > 0) || !deviceBounds({origin, layout.size()}).has_value()) {
        return;
    }
    const TextLayout::Lines& text = layout.lines();
    const CGFloat room = text.ascent + text.descent; // glyphs may stand out of their line, but by less than its height
    for (const TextLine& line : text.lines) {
        const CGRect box = CGRectMake(origin.x + line.x, origin.y + line.baseline - text.ascent, line.width, room);
        const CGRect bounds = toDevice(box.insetBy(-room, -room));
        if (overlapsClip(bounds)) {
            paint(toDevice(box), [&] { drawLine(line, origin, color); });
        }
    }
}

void CairoCanvas::drawLine(const TextLine& line, CGPoint origin, const RGBA& color) {
    const CGPoint place = toDevice(CGPoint{origin.x + line.x, origin.y + line.baseline});
    const cairo_matrix_t matrix{m_scale, 0, 0, m_scale, cairoSteps.snapped(place.x), wholePixels.snapped(place.y)};
    cairo_set_matrix(m_context.get(), &matrix);
    cairo_move_to(m_context.get(), 0, 0);
    setColor(color);
    pango_cairo_show_layout_line(m_context.get(), line.glyphs);
    cairo_new_path(m_context.get());
    cairo_identity_matrix(m_context.get());
}
