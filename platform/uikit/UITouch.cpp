#include "platform/uikit/UITouch.h"

#include "platform/uikit/UIView.h"

CGPoint UITouch::locationInView(const UIView* view) const {
    return view == nullptr ? m_location : view->convertPointFromView(m_location, nullptr);
}

CGPoint UITouch::previousLocationInView(const UIView* view) const {
    return view == nullptr ? m_previous : view->convertPointFromView(m_previous, nullptr);
}

void UITouch::moveTo(CGPoint windowLocation, UITouchPhase phase) {
    m_previous = m_location;
    m_location = windowLocation;
    m_phase = phase;
}
