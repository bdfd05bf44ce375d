#include "simulator/conversation/EventLog.h"

#include "platform/dispatch/MainRunLoop.h"

void EventLog::add(std::string kind, std::string text) {
    const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(MainRunLoop::shared().now());
    m_events.push_back({now, std::move(kind), std::move(text)});
    if (m_listener) {
        m_listener(m_events.back());
    }
}
