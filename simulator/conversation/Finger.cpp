#include "simulator/conversation/Finger.h"

#include "platform/uikit/controls/UITextField.h"
#include "platform/uikit/window/UITouch.h"
#include "simulator/conversation/ConversationHost.h"

void Finger::touch(UITouchPhase phase, CGPoint point) {
    if (phase == UITouchPhase::began) {
        m_host.forgetOpenedLink();
        m_touch = std::make_shared<UITouch>(point);
    } else {
        m_touch->moveTo(point, phase);
    }
    UIEvent event(TouchSet{m_touch});
    m_host.window().sendEvent(event);
    m_host.settle();
}

void Finger::tap(CGPoint point) {
    touch(UITouchPhase::began, point);
    touch(UITouchPhase::ended, point);
}

void Finger::drag(const std::vector<CGPoint>& points, const std::function<void()>& beforeLifting, int steps,
                  std::chrono::milliseconds time) {
    const std::chrono::milliseconds pause(time / (steps * static_cast<int>(points.size() - 1)));
    touch(UITouchPhase::began, points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        const CGPoint from = points[i - 1];
        const CGPoint to = points[i];
        for (int step = 1; step <= steps; ++step) {
            const double part = static_cast<double>(step) / steps;
            touch(UITouchPhase::moved, {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
            m_host.advance(pause);
        }
    }
    if (beforeLifting) {
        beforeLifting();
    }
    touch(UITouchPhase::ended, points.back());
}

std::vector<std::string> Finger::keystrokes(const std::string& text) {
    std::vector<std::string> keys;
    for (const char byte : text) {
        const bool continues = (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
        if (continues && !keys.empty()) {
            keys.back().push_back(byte);
        } else {
            keys.emplace_back(1, byte);
        }
    }
    return keys;
}

bool Finger::eraseLast(UITextField& field) {
    const std::string before = field.text().value_or("");
    const std::size_t last = before.empty() ? 0 : utf16Length(keystrokes(before).back());
    return last > 0 && field.replaceCharactersInRange(NSMakeRange(utf16Length(before) - last, last), "");
}
