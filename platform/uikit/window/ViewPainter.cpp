#include "platform/uikit/window/ViewPainter.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"
#include "platform/uikit/view/UIView.h"

#include <algorithm>
#include <array>

namespace {

constexpr CGFloat invisibleAlpha = 0.01;

bool isInvisible(const UIView& view) {
    return view.isHidden() || view.alpha() <= invisibleAlpha;
}

bool castsShadow(const UIView& view) {
    const CALayer& layer = *view.layer();
    return layer.shadowOpacity() > 0 && layer.shadowColor() && !layer.masksToBounds() && view.backgroundColor();
}

bool intersects(const CGRect& one, const CGRect& other) {
    return !one.intersection(other).isEmpty();
}

/// But for rounding errors.
bool contains(const CGRect& outer, const CGRect& inner) {
    constexpr CGFloat rounding = 1e-6;
    return inner.minX() >= outer.minX() - rounding && inner.minY() >= outer.minY() - rounding &&
           inner.maxX() <= outer.maxX() + rounding && inner.maxY() <= outer.maxY() + rounding;
}

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

/// A clip along a curve costs far more than one along a rectangle, and a clip that cuts nothing off is not needed.
bool needsRoundedClip(const UIView& root, const UIView& parent) {
    const CGRect bounds = root.bounds();
    const CGFloat radius = effectiveRadius(root);
    return std::any_of(parent.subviews().begin(), parent.subviews().end(), [&](const auto& view) {
        if (isInvisible(*view)) {
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
    if (isInvisible(view) || (view.clipsToBounds() && !intersects(view.frame(), dirty))) {
        return;
    }
    const CGPoint shift{view.frame().minX() - view.bounds().minX(), view.frame().minY() - view.bounds().minY()};
    if (view.alpha() < 1) {
        m_canvas.beginGroup(view.alpha());
    } else {
        m_canvas.save();
    }
    m_canvas.translate(shift.x, shift.y);
    paintSelf(view, dirty.offsetBy(-shift.x, -shift.y));
    m_canvas.restore();
}

void ViewPainter::paintSelf(UIView& view, const CGRect& dirty) {
    const bool reached = intersects(view.drawnRect().unionWith(view.layer()->shadowRect()), dirty);
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
    if (!castsShadow(view)) {
        return;
    }
    const CALayer& layer = *view.layer();
    RGBA color = layer.shadowColor()->resolved(m_style);
    color.alpha *= static_cast<CGFloat>(layer.shadowOpacity());
    m_canvas.drawShadow(CGPath::withRoundedRect(view.bounds(), effectiveRadius(view)),
                        {.color = color, .offset = layer.shadowOffset(), .radius = layer.shadowRadius()});
}

void ViewPainter::paintBackground(const UIView& view) {
    if (view.backgroundColor()) {
        m_canvas.fillRoundedRect(view.bounds(), effectiveRadius(view), view.backgroundColor()->resolved(m_style));
    }
}

void ViewPainter::paintContent(UIView& view, const CGRect& dirty) {
    const CGRect rect = view.drawnRect().intersection(dirty);
    if (rect.isEmpty()) {
        return;
    }
    const DrawingContext context(m_canvas, m_style);
    m_canvas.save();
    if (view.clipsToBounds() && effectiveRadius(view) > 0) {
        m_canvas.clip(CGPath::withRoundedRect(view.bounds(), effectiveRadius(view)));
    } else {
        m_canvas.clipRect(view.drawnRect());
    }
    view.drawRect(rect);
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
    for (std::size_t i = first; i < view.subviews().size(); ++i) {
        paint(*view.subviews()[i], dirty);
    }
    if (clips) {
        m_canvas.restore();
    }
}

void ViewPainter::paintBorder(const UIView& view) {
    const CALayer& layer = *view.layer();
    if (layer.borderWidth() > 0 && layer.borderColor()) {
        m_canvas.strokeBorder(view.bounds(), effectiveRadius(view), layer.borderWidth(),
                              layer.borderColor()->resolved(m_style));
    }
}

bool ViewPainter::covers(const UIView& view, const CGRect& dirty) const {
    const bool roundedClip = view.clipsToBounds() && view.layer()->cornerRadius() > 0;
    if (view.isHidden() || view.alpha() < 1 || roundedClip || !contains(view.frame(), dirty)) {
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
