#pragma once

#include "platform/dispatch/MainRunLoop.h"
#include "simulator/live/RecordedGesture.h"

struct LiveShow;

/// Writes down what is done to a live phone, from its beginning, as a flow that ends in the same picture and the same
/// links when it is played (docs/write-a-flow.md). Its waits are those between what is done while something is still to
/// happen by itself; when nothing is, the flow does not wait. Owned by the phone, which tells it of everything that is
/// done, of touches before the window hears of them. A flow that grows beyond all measure ends with a comment that says
/// so.
class FlowRecorder {
public:
    /// Everything from the beginning.
    void begin(const LiveShow& show);
    /// The run loop has forgotten what fell due, and its time.
    void clockBegan();
    /// Whenever something may have fallen due.
    void timePassed();
    /// While it looks away, nothing is written down.
    void lookAway(bool away) { m_looksAway = away; }

    void did(const std::string& command, const std::string& value = "");
    void touched(UIWindow& window, UITouchPhase phase, CGPoint place);
    void wheeled(UIWindow& window, const UIScrollView& list, CGFloat down);
    /// "\b" takes the last character back, "\n" is the return key.
    void typed(const std::string& text);

    [[nodiscard]] std::string text() const;
    /// Grows with every change of the text.
    [[nodiscard]] unsigned revision() const { return m_revision; }

private:
    using Duration = MainRunLoop::Duration;
    /// The wheel is turned in many small steps.
    struct Wheel {
        const UIScrollView* list;
        CGFloat down;
    };

    void waitUntil(Duration time);
    void add(const std::string& line);
    void replaceLast(const std::string& line);

    std::string m_settings;
    std::vector<std::string> m_steps; // lines
    std::size_t m_size = 0;           // bytes in them
    unsigned m_revision = 0;
    bool m_looksAway = false;
    Duration m_written{0};         // the run loop's time that the flow has come to
    Duration m_due{0};             // until when something may still happen by itself
    std::vector<CGPoint> m_finger; // its way; empty while it is up
    bool m_fingerScrolls = false;
    std::optional<Wheel> m_wheel;       // of the last step
    std::optional<std::string> m_typed; // in the last step
};
