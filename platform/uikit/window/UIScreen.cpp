#include "platform/uikit/window/UIScreen.h"

UIScreen& UIScreen::mainScreen() {
    static UIScreen screen;
    return screen;
}

void UIScreen::configure(CGSize points, CGFloat scale) {
    m_bounds = {{0, 0}, points};
    m_scale = scale;
}
