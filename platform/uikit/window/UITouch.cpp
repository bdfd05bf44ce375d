#include "platform/uikit/window/UITouch.h"

#include "platform/uikit/view/UIView.h"

CGPoint UITouch::locationInView(const UIView* view) const {
    return view == nullptr ? m_location : view->convertPointFromView(m_location, nullptr);
}

void UITouch::moveTo(CGPoint windowLocation, UITouchPhase phase) {
    m_location = windowLocation;
    m_phase = phase;
}
