#include "simulator/live/LiveScreen.h"

#include "platform/foundation/PixelGrid.h"
#include "platform/graphics/cairo/CairoCanvas.h"

#include <algorithm>

namespace {

int pixels(CGFloat points, int scale) {
    return static_cast<int>(PixelGrid{static_cast<CGFloat>(scale)}.nearest(points));
}

PixelRect movedBy(PixelRect rect, int x, int y) {
    rect.x += x;
    rect.y += y;
    return rect;
}

/// `from` must lie in one bitmap, and in the other where it is moved to.
void copyPixels(const Bitmap& source, const PixelRect& from, Bitmap& target, int x, int y) {
    for (int line = 0; line < from.height; ++line) {
        const std::uint32_t* const first = source.row(from.y + line) + from.x;
        std::copy(first, first + from.width, target.row(y + line) + x);
    }
}

} // namespace

LiveScreen::LiveScreen(ConversationHost& host)
    : m_host(host), m_scale(host.device().scale),
      m_bitmap(pixels(host.device().size.width, m_scale), pixels(host.device().size.height, m_scale)),
      m_aboveGround(0, 0) {}

LiveScreen::Surroundings LiveScreen::surroundings() const {
    return {m_host.isOpen(), m_host.style(), m_host.window().userInterfaceStyle(), m_host.openedLink()};
}

const ConversationBackdrop& LiveScreen::conversation() {
    renew();
    return m_painter->conversation();
}

void LiveScreen::renew() {
    const Surroundings now = surroundings();
    if (m_shown == now) {
        return;
    }
    m_shown = now;
    m_isWhole = false;
    m_painter.emplace(m_host);
    m_renderer.reset();
}

ScreenChange LiveScreen::update() {
    m_host.window().layoutIfNeeded();
    renew();
    ScreenChange change;
    if (!m_isWhole) {
        paintWhole();
        change.whole = true;
    } else if (m_renderer && m_renderer->render(m_host.window())) {
        change = takeFrame();
        if (m_painter->conversation().card) { // it lies on the extension
            paintWhole();
            change = {.whole = true, .moves = {}, .areas = {}};
        }
    }
    if (!change.isEmpty()) {
        paintAbove(change);
    }
    return change;
}

void LiveScreen::paintWhole() {
    CairoCanvas canvas(m_bitmap, m_scale);
    m_painter->paintBehind(canvas);
    const PixelRect above = m_painter->indicator(m_scale);
    m_aboveGround = Bitmap(above.width, above.height);
    copyPixels(m_bitmap, above, m_aboveGround, 0, 0);
    if (m_host.isOpen()) {
        const CGRect frame = m_host.window().frame();
        m_renderer.emplace(frame.size, m_scale);
        (void)m_renderer->render(m_host.window());
        const Bitmap& window = m_renderer->bitmap();
        m_extension = {pixels(frame.minX(), m_scale), pixels(frame.minY(), m_scale), window.width(), window.height()};
        copy(m_extension);
    }
    m_isWhole = true;
}

/// What moved is copied as well: that is no dearer than moving it here, too.
ScreenChange LiveScreen::takeFrame() {
    ScreenChange change;
    for (const WindowFrame::Move& move : m_renderer->lastFrame().moves) {
        change.moves.push_back({movedBy(move.area, m_extension.x, m_extension.y), move.dy});
        copy(change.moves.back().area);
    }
    for (const PixelRect& rect : m_renderer->lastFrame().painted) {
        change.areas.push_back(movedBy(rect, m_extension.x, m_extension.y));
        copy(change.areas.back());
    }
    return change;
}

void LiveScreen::copy(const PixelRect& area) {
    const PixelRect inside = area.intersection(m_extension);
    copyPixels(m_renderer->bitmap(), movedBy(inside, -m_extension.x, -m_extension.y), m_bitmap, inside.x, inside.y);
}

/// The indicator is painted on what lies under it, which is put back first. A page that moves its pixels carries the
/// indicator along, so where that leads to is sent anew.
void LiveScreen::paintAbove(ScreenChange& change) {
    const PixelRect above = m_painter->indicator(m_scale);
    const auto touches = [&](const PixelRect& area) { return !area.intersection(above).isEmpty(); };
    bool touched = change.whole || std::any_of(change.areas.begin(), change.areas.end(), touches);
    for (const WindowFrame::Move& move : change.moves) {
        if (touches(move.area)) {
            touched = true;
            change.areas.push_back(movedBy(above.intersection(move.area), 0, move.dy).intersection(move.area));
        }
    }
    if (!touched || above.isEmpty()) {
        return;
    }
    copyPixels(m_aboveGround, {0, 0, above.width, above.height}, m_bitmap, above.x, above.y);
    if (m_renderer) {
        copy(above);
    }
    m_painter->paintAbove(m_bitmap, m_scale);
    if (!change.whole) {
        change.areas.push_back(above);
    }
}
