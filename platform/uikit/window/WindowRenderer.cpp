#include "platform/uikit/window/WindowRenderer.h"

#include "platform/graphics/cairo/CairoCanvas.h"
#include "platform/uikit/window/UIWindow.h"
#include "platform/uikit/window/ViewPainter.h"

#include <algorithm>
#include <cstdlib>

namespace {

PixelRect limitsOf(const Bitmap& bitmap) {
    return {0, 0, bitmap.width(), bitmap.height()};
}

} // namespace

std::size_t WindowFrame::paintedPixels() const {
    std::size_t pixels = 0;
    for (const PixelRect& rect : painted) {
        pixels += rect.area();
    }
    return pixels;
}

WindowRenderer::WindowRenderer(CGSize size, int scale)
    : m_grid{static_cast<CGFloat>(scale)},
      m_bitmap(static_cast<int>(m_grid.nearest(size.width)), static_cast<int>(m_grid.nearest(size.height))) {}

bool WindowRenderer::render(UIWindow& window) {
    window.layoutIfNeeded();
    const std::vector<WindowChange> changes = window.takeChanges();
    DirtyRegion dirty(limitsOf(m_bitmap));
    m_lastFrame = {};
    std::erase_if(
        m_kept, [&](const Kept& kept) { return kept.view.expired() || !kept.view.lock()->isDescendantOfView(window); });
    if (m_paintAll) {
        dirty.add(limitsOf(m_bitmap));
    } else {
        for (const WindowChange& change : changes) {
            take(change, dirty);
        }
    }
    m_paintAll = false;
    m_lastFrame.painted = dirty.rects();
    for (const PixelRect& rect : m_lastFrame.painted) {
        paint(window, rect);
    }
    return !m_lastFrame.painted.empty();
}

void WindowRenderer::take(const WindowChange& change, DirtyRegion& dirty) {
    if (change.isMove()) {
        move(change.move, change.distance, dirty);
    } else {
        dirty.add(m_grid.touchedBy(areaOf(change)));
    }
}

/// Where a view's drawing differs from its last one, when that is kept.
CGRect WindowRenderer::areaOf(const WindowChange& change) {
    const std::shared_ptr<UIView> view = change.view.lock();
    const auto kept = view ? keptOf(*view) : m_kept.end();
    if (kept == m_kept.end()) {
        return change.area;
    }
    Bitmap nothing(0, 0);
    CairoCanvas nowhere(nothing, m_grid.scale);
    DrawingRecord record;
    const DrawingContext context(nowhere, view->window()->userInterfaceStyle(), &record);
    view->drawRect(view->bounds());
    const std::optional<CGRect> changed = kept->drawing.changedBy(record.operations, placeOf(*view));
    return changed ? view->convertRectToView(*changed, nullptr).intersection(change.area) : change.area;
}

void WindowRenderer::move(const ScrollMove& plan, CGFloat distance, DirtyRegion& dirty) {
    const PixelRect area = m_grid.inside(plan.area).intersection(limitsOf(m_bitmap));
    const PixelRect touched = m_grid.touchedBy(plan.area).intersection(limitsOf(m_bitmap));
    const Pixels pixels = m_grid.nearest(distance);
    const bool staysInside = std::abs(pixels) < area.height && area == touched;
    if (!plan.canMovePixels || !m_grid.isWhole(distance) || !staysInside) {
        dirty.add(touched);
        return;
    }
    const int dy = static_cast<int>(pixels);
    m_bitmap.scrollRows(area, dy);
    m_lastFrame.moves.push_back({area, dy});
    dirty.shift(area, dy);
    dirty.add({area.x, dy > 0 ? area.y : area.y + area.height + dy, area.width, std::abs(dy)});
    for (const CGRect& overlay : plan.overlays) {
        PixelRect stamped = m_grid.touchedBy(overlay).intersection(area);
        dirty.add(stamped);
        stamped.y += dy;
        dirty.add(stamped.intersection(area));
    }
}

void WindowRenderer::paint(UIWindow& window, const PixelRect& rect) {
    CairoCanvas canvas(m_bitmap, static_cast<int>(m_grid.scale));
    const CGRect area = m_grid.points(rect);
    canvas.clipRect(area);
    const CGPoint origin = window.frame().origin; // of the window on its screen
    canvas.translate(-origin.x, -origin.y);
    const auto drawer = [&](UIView& view, const RGBA& ground, std::vector<PathOperation> paths) {
        drawPaths(canvas, view, ground, std::move(paths));
    };
    ViewPainter(canvas, window.userInterfaceStyle(), drawer).paint(window, area.offsetBy(origin));
}

void WindowRenderer::drawPaths(CairoCanvas& canvas, UIView& view, const RGBA& ground,
                               std::vector<PathOperation> paths) {
    auto kept = keptOf(view);
    if (paths.empty() && kept != m_kept.end()) {
        m_kept.erase(kept);
    } else if (!paths.empty()) {
        kept = kept == m_kept.end() ? m_kept.insert(kept, {strong<UIView>(&view), {}}) : kept;
        kept->drawing.draw(canvas, view.bounds(), placeOf(view), ground, std::move(paths));
    }
}

KeptDrawing::Place WindowRenderer::placeOf(const UIView& view) const {
    PixelRect visible = limitsOf(m_bitmap);
    for (const UIView* ancestor = view.superview(); ancestor != nullptr; ancestor = ancestor->superview()) {
        if (ancestor->clipsToBounds()) {
            const CGRect inside = ancestor->convertRectToView(ancestor->bounds(), nullptr);
            visible = visible.intersection(m_grid.inside(m_grid.snapped(inside)));
        }
    }
    return {view.convertRectToView(view.bounds(), nullptr), visible};
}

WindowRenderer::KeptDrawings::iterator WindowRenderer::keptOf(const UIView& view) {
    return std::find_if(m_kept.begin(), m_kept.end(),
                        [&](const Kept& kept) { return kept.view.lock().get() == &view; });
}
