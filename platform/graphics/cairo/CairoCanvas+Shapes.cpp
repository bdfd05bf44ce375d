// Paths and the shadows they cast.
#include "platform/graphics/cairo/CairoCanvas.h"

#include <cairo.h>

#include <cmath>

namespace {

/// The whole pixels that a rounded rectangle surely covers from side to side; empty when there are none.
CGRect coveredBand(const CGRect& rect, CGFloat radius) {
    const CGFloat left = std::ceil(rect.minX() + 0.01);
    const CGFloat top = std::ceil(rect.minY() + radius + 0.01);
    return CGRectMake(left, top, std::floor(rect.maxX() - 0.01) - left, std::floor(rect.maxY() - radius - 0.01) - top);
}

} // namespace

void CairoCanvas::fillPath(const CGPath& path, const RGBA& color) {
    const std::optional<CGRect> bounds = deviceBounds(path.boundingBox());
    if (!bounds.has_value() || !(color.alpha > 0)) {
        return;
    }
    paint(*bounds, [&] {
        setColor(color);
        if (const std::optional<CGRect> rect = withoutCorners(path)) {
            cairo_rectangle(m_context.get(), rect->minX(), rect->minY(), rect->size.width, rect->size.height);
        } else {
            addPath(path);
        }
        cairo_fill(m_context.get());
    });
}

/// What a rounded rectangle on whole pixels comes to where the clip holds none of its corners: a plain one gives the
/// same pixels at a fraction of the cost. This is most of what scrolling fills.
std::optional<CGRect> CairoCanvas::withoutCorners(const CGPath& path) const {
    const std::optional<RoundedRect>& shape = path.asRectangle();
    if (!shape.has_value() || !(shape->radius > 0)) {
        return std::nullopt;
    }
    const CGRect box = toDevice(shape->rect);
    const CGRect pixels = wholePixels.snapped(box);
    const bool onPixels =
        cairoSteps.snapped(box.minX()) == pixels.minX() && cairoSteps.snapped(box.maxX()) == pixels.maxX() &&
        cairoSteps.snapped(box.minY()) == pixels.minY() && cairoSteps.snapped(box.maxY()) == pixels.maxY();
    if (!onPixels || touchesCorner({pixels, shape->radius * m_scale}, clipBounds())) {
        return std::nullopt;
    }
    return pixels;
}

void CairoCanvas::strokePath(const CGPath& path, const RGBA& color, const StrokeStyle& style) {
    static constexpr cairo_line_join_t joins[] = {CAIRO_LINE_JOIN_MITER, CAIRO_LINE_JOIN_ROUND, CAIRO_LINE_JOIN_BEVEL};
    static constexpr cairo_line_cap_t caps[] = {CAIRO_LINE_CAP_BUTT, CAIRO_LINE_CAP_ROUND, CAIRO_LINE_CAP_SQUARE};
    const std::optional<CGRect> bounds = deviceBounds(path.boundingBox().insetBy(-style.reach(), -style.reach()));
    if (path.isEmpty() || !bounds.has_value() || !(color.alpha > 0) || !(style.width > 0)) {
        return;
    }
    paint(*bounds, [&] {
        cairo_t* context = m_context.get();
        setColor(color);
        addPath(path);
        cairo_set_line_width(context, style.width);
        cairo_set_line_join(context, joins[static_cast<int>(style.join)]);
        cairo_set_line_cap(context, caps[static_cast<int>(style.cap)]);
        cairo_scale(context, m_scale, m_scale); // the path is in pixels, the pen in points
        cairo_stroke(context);
        cairo_identity_matrix(context);
    });
}

void CairoCanvas::drawShadow(const CGPath& path, const RGBA& color, CGSize offset) {
    const CGPath moved = path.offsetBy(offset.width, offset.height);
    if (!deviceBounds(moved.boundingBox()).has_value()) {
        return;
    }
    cairo_save(m_context.get());
    if (path.asRectangle().has_value()) {
        excludeCovered(*path.asRectangle());
    }
    fillPath(moved, color);
    cairo_restore(m_context.get());
}

void CairoCanvas::excludeCovered(const RoundedRect& shape) {
    const CGRect band = coveredBand(toDevice(shape.rect), shape.radius * m_scale);
    if (band.isEmpty()) {
        return;
    }
    const CGRect all = clipBounds().insetBy(-1, -1).unionWith(band);
    cairo_rectangle(m_context.get(), all.minX(), all.minY(), all.size.width, all.size.height);
    cairo_rectangle(m_context.get(), band.minX(), band.minY(), band.size.width, band.size.height);
    cairo_set_fill_rule(m_context.get(), CAIRO_FILL_RULE_EVEN_ODD);
    cairo_clip(m_context.get());
    cairo_set_fill_rule(m_context.get(), CAIRO_FILL_RULE_WINDING);
}
