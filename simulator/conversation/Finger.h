#pragma once

#include "platform/uikit/window/UITouch.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

class ConversationHost;
class UITextField;

/// One finger on the extension's window. What it does goes the way of every touch: window, hit test, view; all that is
/// due at once has followed when a call returns. Points are in the window's coordinates.
class Finger {
public:
    static constexpr int usualSteps = 20;
    static constexpr std::chrono::milliseconds usualTime{400};

    explicit Finger(ConversationHost& host) : m_host(host) {}

    /// Began puts it down; then it may move, and ends or is cancelled.
    void touch(UITouchPhase phase, CGPoint point);
    void tap(CGPoint point);
    /// Down at the first point, along straight lines to the last, up, in so much virtual time. The finger is seen so
    /// many times on each line; `beforeLifting` is called while it is still down.
    void drag(const std::vector<CGPoint>& points, const std::function<void()>& beforeLifting = {},
              int steps = usualSteps, std::chrono::milliseconds time = usualTime);

    /// A text as single presses of keys.
    [[nodiscard]] static std::vector<std::string> keystrokes(const std::string& text);
    /// The delete key: the field's last character goes. False when there is none, or the field keeps it.
    static bool eraseLast(UITextField& field);

private:
    ConversationHost& m_host;
    std::shared_ptr<UITouch> m_touch;
};
