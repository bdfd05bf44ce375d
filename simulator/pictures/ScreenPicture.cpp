#include "simulator/pictures/ScreenPicture.h"

#include "platform/foundation/PixelGrid.h"
#include "platform/graphics/cairo/CairoCanvas.h"
#include "platform/uikit/window/ViewPainter.h"
#include "simulator/pictures/ScreenPainter.h"

Bitmap takePicture(ConversationHost& host, PictureExtent extent, std::optional<int> wantedScale) {
    const int scale = wantedScale.value_or(host.device().scale);
    UIWindow& window = host.window();
    window.layoutIfNeeded();
    const bool whole = extent == PictureExtent::screen;
    const CGRect shown = whole ? CGRect{{0, 0}, host.device().size} : window.frame();
    const PixelGrid grid{static_cast<CGFloat>(scale)};
    const ScreenPainter surroundings(host);
    Bitmap bitmap(static_cast<int>(grid.nearest(shown.size.width)), static_cast<int>(grid.nearest(shown.size.height)));
    CairoCanvas canvas(bitmap, scale);
    canvas.translate(-shown.minX(), -shown.minY());
    surroundings.paintBehind(canvas);
    if (host.isOpen()) {
        canvas.save();
        canvas.clipRect(window.frame());
        ViewPainter(canvas, window.userInterfaceStyle()).paint(window, window.frame());
        canvas.restore();
    }
    if (whole) {
        surroundings.paintAbove(bitmap, scale);
    }
    return bitmap;
}
