#pragma once

#include "platform/uikit/window/UIResponder.h"

#include <chrono>

/// One report of the touch screen: the touches that changed. Made by the host for each UIWindow::sendEvent.
class UIEvent : public NSObject {
public:
    explicit UIEvent(TouchSet touches) : m_touches(std::move(touches)) {}

    [[nodiscard]] const TouchSet& allTouches() const { return m_touches; }

private:
    TouchSet m_touches;
};
