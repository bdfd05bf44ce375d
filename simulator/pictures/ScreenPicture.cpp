#include "simulator/pictures/ScreenPicture.h"

#include "platform/graphics/cairo/CairoCanvas.h"
#include "platform/uikit/window/ViewPainter.h"
#include "simulator/conversation/ConversationHost.h"
#include "simulator/pictures/BackdropViews.h"
#include "simulator/pictures/ConversationBackdrop.h"

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

Bitmap takePicture(ConversationHost& host, PictureExtent extent, std::optional<int> wantedScale) {
    const int scale = wantedScale.value_or(host.device().scale);
    UIWindow& window = host.window();
    window.layoutIfNeeded();
    const bool whole = extent == PictureExtent::screen;
    const CGRect shown = whole ? CGRect{{0, 0}, host.device().size} : window.frame();
    const UIUserInterfaceStyle style = window.userInterfaceStyle();
    Bitmap bitmap(pixels(shown.size.width, scale), pixels(shown.size.height, scale));
    CairoCanvas canvas(bitmap, scale);
    canvas.translate(-shown.minX(), -shown.minY());
    canvas.fillRect(shown, systemColor("systemBackgroundColor")->resolved(style));
    ViewPainter painter(canvas, style);
    const ConversationBackdrop conversation = makeConversation(host.device(), host.style(), host.openedLink());
    if (whole) {
        painter.paint(*conversation.behind, shown);
    }
    canvas.save();
    canvas.clipRect(window.frame());
    painter.paint(window, window.frame());
    canvas.restore();
    if (whole && conversation.card) {
        painter.paint(*conversation.card, shown);
    }
    if (whole && conversation.above) {
        conversation.above->setBackgroundColor(contrastingColor(bitmap, conversation.above->frame(), scale));
        painter.paint(*conversation.above, shown);
    }
    return bitmap;
}
