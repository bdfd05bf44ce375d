#include "simulator/pictures/ScreenPainter.h"

#include "platform/foundation/PixelGrid.h"
#include "platform/graphics/cairo/CairoCanvas.h"
#include "platform/uikit/window/ViewPainter.h"
#include "simulator/pictures/BackdropViews.h"

#include <cmath>

namespace {

int pixels(CGFloat points, int scale) {
    return static_cast<int>(std::lround(points * scale));
}

/// Black on light and white on dark ground, as the phone draws its home indicator.
std::shared_ptr<UIColor> contrastingColor(const Bitmap& bitmap, const CGRect& area, int scale) {
    const int y = pixels(area.midY(), scale);
    const int right = pixels(area.maxX(), scale);
    long light = 0;
    for (int x = pixels(area.minX(), scale); x < right; ++x) {
        const bool greenIsHigh = ((bitmap.pixel(x, y) >> 8) & 0xFFu) >= 0x80u;
        light += greenIsHigh ? 1 : -1;
    }
    return light > 0 ? UIColor::blackColor() : UIColor::whiteColor();
}

} // namespace

ScreenPainter::ScreenPainter(const ConversationHost& host)
    : m_bounds{{0, 0}, host.device().size}, m_style(host.window().userInterfaceStyle()),
      m_conversation(makeConversation(host)) {}

void ScreenPainter::paintBehind(Canvas& canvas) const {
    canvas.fillRect(m_bounds, systemColor("systemBackgroundColor")->resolved(m_style));
    ViewPainter(canvas, m_style).paint(*m_conversation.behind, m_bounds);
}

void ScreenPainter::paintAbove(Bitmap& screen, int scale) const {
    CairoCanvas canvas(screen, scale);
    if (m_conversation.card) {
        ViewPainter(canvas, m_style).paint(*m_conversation.card, m_bounds);
    }
    if (m_conversation.above) {
        m_conversation.above->setBackgroundColor(contrastingColor(screen, m_conversation.above->frame(), scale));
        ViewPainter(canvas, m_style).paint(*m_conversation.above, m_bounds);
    }
}

PixelRect ScreenPainter::indicator(int scale) const {
    const PixelGrid grid{static_cast<CGFloat>(scale)};
    return m_conversation.above ? grid.touchedBy(m_conversation.above->frame()) : PixelRect{};
}
