#include "platform/graphics/cairo/CairoCanvas.h"

#include "platform/graphics/cairo/ScaledImages.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>

namespace {

/// Cairo counts in 1/256 pixels in 32 bits; nothing this far out is seen.
constexpr CGFloat farthest = 1'000'000;

bool isReachable(CGFloat value) {
    return std::abs(value) < farthest;
}

CGPoint between(CGPoint from, CGPoint to, CGFloat part) {
    return {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
}

bool overlap(const CGRect& one, const CGRect& other) {
    return one.minX() < other.maxX() && other.minX() < one.maxX() && one.minY() < other.maxY() &&
           other.minY() < one.maxY();
}

/// Puts a path into Cairo point by point; Cairo itself knows only cubic curves.
class PathWriter {
public:
    PathWriter(cairo_t* context, CGFloat scale, CGPoint origin)
        : m_context(context), m_scale(scale), m_origin(origin) {}

    void write(const CGPathElement& element) {
        const CGPoint a = place(element.points[0]);
        const CGPoint b = place(element.points[1]);
        const CGPoint c = place(element.points[2]);
        switch (element.type) {
        case CGPathElementType::moveToPoint:
            cairo_move_to(m_context, a.x, a.y);
            m_begun = true;
            m_current = m_start = a;
            break;
        case CGPathElementType::addLineToPoint:
            cairo_line_to(m_context, a.x, a.y);
            advance(a, a);
            break;
        case CGPathElementType::addQuadCurveToPoint:
            curve(between(m_begun ? m_current : a, a, 2.0 / 3), between(b, a, 2.0 / 3), b);
            advance(a, b);
            break;
        case CGPathElementType::addCurveToPoint:
            curve(a, b, c);
            advance(a, c);
            break;
        case CGPathElementType::closeSubpath:
            cairo_close_path(m_context);
            m_current = m_start;
            break;
        }
    }

private:
    [[nodiscard]] CGPoint place(CGPoint point) const {
        return {cairoSteps.snapped(m_scale * point.x + m_origin.x), cairoSteps.snapped(m_scale * point.y + m_origin.y)};
    }
    void curve(CGPoint control1, CGPoint control2, CGPoint end) {
        cairo_curve_to(m_context, control1.x, control1.y, control2.x, control2.y, end.x, end.y);
    }
    void advance(CGPoint first, CGPoint end) {
        m_start = m_begun ? m_start : first;
        m_current = end;
        m_begun = true;
    }

    cairo_t* m_context;
    CGFloat m_scale;
    CGPoint m_origin;
    bool m_begun = false; // until then there is neither a start nor a current point
    CGPoint m_start;
    CGPoint m_current;
};

void writePath(cairo_t* context, const CGPath& path, CGFloat scale, CGPoint origin) {
    PathWriter writer(context, scale, origin);
    for (const CGPathElement& element : path.elements()) {
        writer.write(element);
    }
}

} // namespace

void CairoCanvas::Release::operator()(_cairo* context) const {
    cairo_destroy(context);
}

CairoCanvas::CairoCanvas(Bitmap& bitmap, CGFloat scale) : m_scale(scale), m_states(1) {
    cairo_surface_t* surface = surfaceOver(bitmap);
    m_context.reset(cairo_create(surface));
    cairo_surface_destroy(surface); // the context holds it
    cairo_set_antialias(m_context.get(), CAIRO_ANTIALIAS_GRAY);
}

CairoCanvas::CairoCanvas(Bitmap& bitmap, const CairoCanvas& like, const PixelRect& area)
    : CairoCanvas(bitmap, like.m_scale) {
    cairo_surface_set_device_offset(cairo_get_target(m_context.get()), -area.x, -area.y);
    m_states.back().origin = like.m_states.back().origin;
}

CairoCanvas::~CairoCanvas() = default;

void CairoCanvas::save() {
    cairo_save(m_context.get());
    m_states.push_back(m_states.back());
    m_states.back().groupAlpha.reset();
}

void CairoCanvas::beginGroup(CGFloat alpha) {
    save();
    cairo_push_group(m_context.get());
    m_states.back().groupAlpha = alpha;
}

void CairoCanvas::restore() {
    if (m_states.size() < 2) {
        return;
    }
    const State ended = m_states.back();
    m_states.pop_back();
    m_roundedClips.resize(m_states.back().roundedClips);
    if (ended.groupAlpha.has_value()) {
        cairo_pop_group_to_source(m_context.get());
        cairo_paint_with_alpha(m_context.get(), *ended.groupAlpha);
    }
    cairo_restore(m_context.get());
}

void CairoCanvas::translate(CGFloat dx, CGFloat dy) {
    m_states.back().origin = toDevice(CGPoint{dx, dy});
}

void CairoCanvas::clip(const CGPath& path) {
    const std::optional<RoundedRect>& shape = path.asRectangle();
    const std::optional<CGRect> bounds = deviceBounds(path.boundingBox());
    if (!bounds.has_value()) {
        cairo_rectangle(m_context.get(), 0, 0, 0, 0);
    } else if (shape.has_value()) {
        const CGRect box = wholePixels.snapped(*bounds);
        cairo_rectangle(m_context.get(), box.minX(), box.minY(), box.size.width, box.size.height);
        if (shape->radius > 0) {
            m_roundedClips.push_back({box, shape->radius * m_scale});
            m_states.back().roundedClips = m_roundedClips.size();
        }
    } else {
        addPath(path);
    }
    cairo_clip(m_context.get());
}

CGPoint CairoCanvas::toDevice(CGPoint point) const {
    const CGPoint origin = m_states.back().origin;
    return {m_scale * point.x + origin.x, m_scale * point.y + origin.y};
}

CGRect CairoCanvas::toDevice(const CGRect& rect) const {
    const CGPoint start = toDevice(rect.origin);
    const CGPoint end = toDevice(CGPoint{rect.maxX(), rect.maxY()});
    return CGRectMake(start.x, start.y, end.x - start.x, end.y - start.y);
}

std::optional<CGRect> CairoCanvas::deviceBounds(const CGRect& rect) const {
    const CGRect box = toDevice(rect);
    const bool reachable =
        isReachable(box.minX()) && isReachable(box.maxX()) && isReachable(box.minY()) && isReachable(box.maxY());
    return reachable ? std::optional<CGRect>(box) : std::nullopt;
}

void CairoCanvas::setColor(const RGBA& color) {
    cairo_set_source_rgba(m_context.get(), color.red, color.green, color.blue, color.alpha);
}

void CairoCanvas::addPath(const CGPath& path) {
    writePath(m_context.get(), path, m_scale, m_states.back().origin);
}

void CairoCanvas::paint(const CGRect& bounds, const std::function<void()>& draw) {
    const auto touched = [&bounds](const RoundedRect& shape) { return touchesCorner(shape, bounds); };
    if (std::none_of(m_roundedClips.begin(), m_roundedClips.end(), touched)) {
        draw();
        return;
    }
    cairo_save(m_context.get());
    for (const RoundedRect& shape : m_roundedClips) {
        if (touched(shape)) {
            writePath(m_context.get(), CGPath::withRoundedRect(shape.rect, shape.radius), 1, {});
            cairo_clip(m_context.get());
        }
    }
    draw();
    cairo_restore(m_context.get());
}

bool CairoCanvas::touchesCorner(const RoundedRect& shape, const CGRect& bounds) {
    const CGFloat r = shape.radius;
    const CGRect& rect = shape.rect;
    return overlap(CGRectMake(rect.minX(), rect.minY(), r, r), bounds) ||
           overlap(CGRectMake(rect.maxX() - r, rect.minY(), r, r), bounds) ||
           overlap(CGRectMake(rect.minX(), rect.maxY() - r, r, r), bounds) ||
           overlap(CGRectMake(rect.maxX() - r, rect.maxY() - r, r, r), bounds);
}

CGRect CairoCanvas::clipBounds() const {
    CGFloat left = 0;
    CGFloat top = 0;
    CGFloat right = 0;
    CGFloat bottom = 0;
    cairo_clip_extents(m_context.get(), &left, &top, &right, &bottom);
    return CGRectMake(left, top, right - left, bottom - top);
}

bool CairoCanvas::overlapsClip(const CGRect& bounds) const {
    return overlap(bounds, clipBounds());
}
