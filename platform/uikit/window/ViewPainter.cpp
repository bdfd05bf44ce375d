#include "platform/uikit/window/ViewPainter.h"

#include "platform/foundation/PixelGrid.h"
#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"
#include "platform/uikit/view/UIView.h"

#include <algorithm>
#include <array>
#include <typeinfo>

namespace {

CGFloat effectiveRadius(const UIView& view) {
    const CGSize size = view.bounds().size;
    return std::clamp(view.layer()->cornerRadius(), 0.0, std::max(0.0, std::min(size.width, size.height) / 2));
}

/// Whether the point is inside the rectangle and not in one of the corners that the radius cuts off.
bool insideRounded(const CGRect& rect, CGFloat radius, CGPoint point) {
    const CGFloat x = std::clamp(point.x, rect.minX() + radius, rect.maxX() - radius);
    const CGFloat y = std::clamp(point.y, rect.minY() + radius, rect.maxY() - radius);
    return (point.x - x) * (point.x - x) + (point.y - y) * (point.y - y) <= radius * radius;
}

/// Whether a view shows its background and nothing else, so that fading it takes no group.
bool isPlain(const UIView& view) {
    return typeid(view) == typeid(UIView) && view.subviews().empty() && !view.layer()->hasBorder() &&
           view.layer()->shadowRect().isEmpty();
}

/// A clip along a curve costs far more than one along a rectangle, and a clip that cuts nothing off is not needed.
bool needsRoundedClip(const UIView& root, const UIView& parent) {
    const CGRect bounds = root.bounds();
    const CGFloat radius = effectiveRadius(root);
    return std::any_of(parent.subviews().begin(), parent.subviews().end(), [&](const auto& view) {
        if (!view->isDrawn()) {
            return false;
        }
        const CGRect r = parent.convertRectToView(view->frame(), &root);
        const std::array corners{CGPoint{r.minX(), r.minY()}, CGPoint{r.maxX(), r.minY()}, CGPoint{r.minX(), r.maxY()},
                                 CGPoint{r.maxX(), r.maxY()}};
        return !std::all_of(corners.begin(), corners.end(), [&](CGPoint corner) {
            return insideRounded(bounds, radius, corner);
        }) || (!view->clipsToBounds() && needsRoundedClip(root, *view));
    });
}

} // namespace

void ViewPainter::paint(UIView& view, const CGRect& dirty) {
    const CGPoint shift = view.frame().origin - view.bounds().origin;
    const CGRect inside = dirty.offsetBy(-shift.x, -shift.y);
    if (!view.isDrawn() || view.paintedRect().intersection(inside).isEmpty()) {
        return;
    }
    m_canvas.save();
    m_canvas.translate(shift.x, shift.y);
    if (view.alpha() >= 1) {
        paintSelf(view, inside);
    } else if (isPlain(view)) {
        paintBackground(view);
    } else {
        paintFaded(view, inside);
    }
    m_canvas.restore();
}

/// A group takes as much memory and time as there is room for it.
void ViewPainter::paintFaded(UIView& view, const CGRect& dirty) {
    const CGRect room = view.paintedRect().intersection(dirty);
    if (room.isEmpty()) {
        return;
    }
    m_canvas.clipRect(room.insetBy(-1, -1)); // what is antialiased reaches a little further
    m_canvas.beginGroup(view.alpha());
    paintSelf(view, dirty);
    m_canvas.restore();
}

void ViewPainter::paintSelf(UIView& view, const CGRect& dirty) {
    const CGRect reach = view.drawnRect().unionWith(view.layer()->shadowRect());
    const bool reached = !reach.intersection(dirty).isEmpty();
    const std::optional<std::size_t> covering = lastCoveringSubview(view, dirty);
    if (reached && !covering) {
        paintShadow(view);
        paintBackground(view);
        paintContent(view, dirty);
    }
    paintSubviews(view, dirty, covering.value_or(0));
    if (reached) {
        paintBorder(view);
    }
}

void ViewPainter::paintShadow(const UIView& view) {
    const CALayer& layer = *view.layer();
    if (layer.shadowRect().isEmpty()) {
        return;
    }
    RGBA color = layer.shadowColor()->resolved(m_style);
    color.alpha *= static_cast<CGFloat>(layer.shadowOpacity());
    m_canvas.drawShadow(CGPath::withRoundedRect(view.bounds(), effectiveRadius(view)), color, layer.shadowOffset());
}

void ViewPainter::paintBackground(const UIView& view) {
    if (view.backgroundColor()) {
        RGBA color = view.backgroundColor()->resolved(m_style);
        color.alpha *= isPlain(view) ? view.alpha() : 1; // every other view fades as a group
        m_canvas.fillRoundedRect(view.bounds(), effectiveRadius(view), color);
    }
}

void ViewPainter::paintContent(UIView& view, const CGRect& dirty) {
    const CGRect rect = view.drawnRect().intersection(dirty);
    if (rect.isEmpty()) {
        return;
    }
    const RGBA ground = view.backgroundColor() ? view.backgroundColor()->resolved(m_style) : RGBA{0, 0, 0, 0};
    const bool standsOnGround = ground.alpha >= 1 && effectiveRadius(view) == 0 && view.drawnRect() == view.bounds();
    const bool records = m_drawPaths && standsOnGround;
    DrawingRecord record;
    const DrawingContext context(m_canvas, m_style, records ? &record : nullptr);
    m_canvas.save();
    if (view.clipsToBounds() && effectiveRadius(view) > 0) {
        m_canvas.clip(CGPath::withRoundedRect(view.bounds(), effectiveRadius(view)));
    } else {
        m_canvas.clipRect(view.drawnRect());
    }
    view.drawRect(records ? view.bounds() : rect); // a record is to be like the last one
    if (records) {
        m_drawPaths(view, ground, std::move(record.operations));
    }
    m_canvas.restore();
}

void ViewPainter::paintSubviews(UIView& view, const CGRect& dirty, std::size_t first) {
    if (view.subviews().empty()) {
        return;
    }
    const bool clips = view.clipsToBounds();
    if (clips) {
        m_canvas.save();
        if (effectiveRadius(view) > 0 && needsRoundedClip(view, view)) {
            m_canvas.clip(CGPath::withRoundedRect(view.bounds(), effectiveRadius(view)));
        } else {
            m_canvas.clipRect(view.bounds());
        }
    }
    if (const auto [bar, above] = lastBottomBar(view, dirty); bar > first) {
        m_canvas.save();
        m_canvas.clipRect(above);
        for (; first < bar; ++first) {
            paint(*view.subviews()[first], above);
        }
        m_canvas.restore();
    }
    for (; first < view.subviews().size(); ++first) {
        paint(*view.subviews()[first], dirty);
    }
    if (clips) {
        m_canvas.restore();
    }
}

void ViewPainter::paintBorder(const UIView& view) {
    const CALayer& layer = *view.layer();
    if (layer.hasBorder()) {
        m_canvas.strokeBorder(view.bounds(), effectiveRadius(view), layer.borderWidth(),
                              layer.borderColor()->resolved(m_style));
    }
}

bool ViewPainter::covers(const UIView& view, const CGRect& dirty) const {
    constexpr CGFloat rounding = PixelGrid::tolerance; // in points: more than a pixel's, still too little to be seen
    const bool isWithin = view.frame().insetBy(-rounding, -rounding).contains(dirty);
    if (view.isHidden() || view.alpha() < 1 || view.layer()->cutsCorners() || !isWithin) {
        return false;
    }
    const bool opaque = view.backgroundColor() && view.backgroundColor()->resolved(m_style).alpha >= 1;
    if (opaque && view.layer()->cornerRadius() == 0) {
        return true;
    }
    const CGRect inside =
        dirty.offsetBy(view.bounds().minX() - view.frame().minX(), view.bounds().minY() - view.frame().minY());
    return lastCoveringSubview(view, inside).has_value();
}

std::optional<std::size_t> ViewPainter::lastCoveringSubview(const UIView& view, const CGRect& dirty) const {
    for (std::size_t i = view.subviews().size(); i > 0; --i) {
        if (covers(*view.subviews()[i - 1], dirty)) {
            return i - 1;
        }
    }
    return std::nullopt;
}

ViewPainter::BottomBar ViewPainter::lastBottomBar(const UIView& view, const CGRect& dirty) const {
    constexpr CGFloat edge = 1; // in points: its first pixels may be no whole ones
    for (std::size_t i = view.subviews().size(); i > 1; --i) {
        const CGFloat top = view.subviews()[i - 1]->frame().minY() + edge;
        const CGRect below = CGRectMake(dirty.minX(), top, dirty.size.width, dirty.maxY() - top);
        if (top > dirty.minY() && !below.isEmpty() && covers(*view.subviews()[i - 1], below)) {
            return {i - 1, CGRectMake(dirty.minX(), dirty.minY(), dirty.size.width, top - dirty.minY())};
        }
    }
    return {0, dirty};
}
