#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

/// Something that happened in the conversation, told in words.
struct Event {
    std::chrono::milliseconds time{0}; // since the flow began, on the virtual clock
    std::string kind;                  // "activation", "style", "tap", "screen", "link" …
    std::string text;
};

/// Everything that happened, in order, while one flow is played. Owned by the player; `listener` may print as it grows.
class EventLog {
public:
    explicit EventLog(std::function<void(const Event&)> listener) : m_listener(std::move(listener)) {}

    void add(std::string kind, std::string text);
    [[nodiscard]] const std::vector<Event>& events() const { return m_events; }

private:
    std::function<void(const Event&)> m_listener;
    std::vector<Event> m_events;
};
