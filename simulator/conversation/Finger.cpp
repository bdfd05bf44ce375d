#include "simulator/conversation/Finger.h"

#include "platform/uikit/controls/UITextField.h"
#include "platform/uikit/window/UITouch.h"
#include "simulator/conversation/ConversationHost.h"

void Finger::report(const std::shared_ptr<UITouch>& touch) {
    if (touch->phase() == UITouchPhase::began) {
        m_host.forgetOpenedLink();
    }
    const auto event = std::make_shared<UIEvent>(TouchSet{touch});
    m_host.window().sendEvent(*event);
    m_host.settle();
}

void Finger::tap(CGPoint point) {
    const auto touch = std::make_shared<UITouch>(point);
    report(touch);
    touch->moveTo(point, UITouchPhase::ended);
    report(touch);
}

void Finger::drag(const std::vector<CGPoint>& points, const std::function<void()>& beforeLifting, int steps) {
    const std::chrono::milliseconds pause(400 / (steps * static_cast<int>(points.size() - 1)));
    const auto touch = std::make_shared<UITouch>(points.front());
    report(touch);
    for (std::size_t i = 1; i < points.size(); ++i) {
        const CGPoint from = points[i - 1];
        const CGPoint to = points[i];
        for (int step = 1; step <= steps; ++step) {
            const double part = static_cast<double>(step) / steps;
            touch->moveTo({from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part}, UITouchPhase::moved);
            report(touch);
            m_host.advance(pause);
        }
    }
    if (beforeLifting) {
        beforeLifting();
    }
    touch->moveTo(points.back(), UITouchPhase::ended);
    report(touch);
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
