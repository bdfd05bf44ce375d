#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/uikit/window/UIResponder.h"

#include <utility>

class UIView;

enum class UITouchPhase { began, moved, stationary, ended, cancelled };

/// One finger on the screen, from its first contact to its last. Made by the host, one object per finger; the window
/// sets its view by hit testing when it begins.
class UITouch : public NSObject {
public:
    /// In the window's coordinates, points.
    explicit UITouch(CGPoint windowLocation) : m_location(windowLocation) {}

    [[nodiscard]] UITouchPhase phase() const { return m_phase; }
    /// The view that was hit when the touch began; null when it is gone.
    [[nodiscard]] std::shared_ptr<UIView> view() const { return m_view.lock(); }
    /// In the coordinates of `view`; of the window when null.
    [[nodiscard]] CGPoint locationInView(const UIView* view) const;

    /// For the window and the host.
    void setView(const std::shared_ptr<UIView>& view) { m_view = view; }
    void moveTo(CGPoint windowLocation, UITouchPhase phase);

private:
    UITouchPhase m_phase = UITouchPhase::began;
    CGPoint m_location;
    std::weak_ptr<UIView> m_view;
};

/// One report of the touch screen: the touches that changed. Made by the host for each UIWindow::sendEvent.
class UIEvent : public NSObject {
public:
    explicit UIEvent(TouchSet touches) : m_touches(std::move(touches)) {}

    [[nodiscard]] const TouchSet& allTouches() const { return m_touches; }

private:
    TouchSet m_touches;
};
