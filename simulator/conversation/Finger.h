#pragma once

#include "platform/uikit/window/UITouch.h"

#include <functional>
#include <string>
#include <vector>

class ConversationHost;
class UITextField;

/// One finger on the extension's window. What it does goes the way of every touch: window, hit test, view. Points are
/// in the window's coordinates.
class Finger {
public:
    explicit Finger(ConversationHost& host) : m_host(host) {}

    void tap(CGPoint point);
    /// Down at the first point, along straight lines to the last, up. Takes 400 virtual milliseconds. The finger is
    /// seen so many times on each line; `beforeLifting` is called while it is still down.
    void drag(const std::vector<CGPoint>& points, const std::function<void()>& beforeLifting = {},
              int steps = stepsOfALine);
    static constexpr int stepsOfALine = 20;

    /// A text as single presses of keys.
    [[nodiscard]] static std::vector<std::string> keystrokes(const std::string& text);
    /// The delete key: the field's last character goes. False when there is none, or the field keeps it.
    static bool eraseLast(UITextField& field);

private:
    void report(const std::shared_ptr<UITouch>& touch);

    ConversationHost& m_host;
};
