#pragma once

#include "platform/dispatch/MainRunLoop.h"
#include "simulator/conversation/BundleSetup.h"
#include "simulator/live/RecordedGesture.h"

/// What stands at the top of a recorded flow.
struct RecordedSettings {
    std::string device;
    std::string scene; // empty: the extension
    std::string textSize;
    std::vector<std::string> participants;
    std::vector<ResourceOverride> overrides;
};

/// Writes down what is done to a live phone, from its beginning, as a flow that ends in the same picture and the same
/// links when it is played in virtual time (docs/write-a-flow.md). Owned by the phone, which tells it of everything
/// that is done, of touches before the window hears of them. A flow that grows beyond all measure ends with a comment
/// that says so.
class FlowRecorder {
public:
    /// Everything from the beginning.
    void begin(const RecordedSettings& settings);
    /// The run loop is about to forget what falls due, and its time.
    void clockBeginsAnew();
    /// After each turn of the run loop.
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

    [[nodiscard]] Duration elapsed() const;
    void waitUntil(Duration time);
    void add(const std::string& line);
    void replaceLast(const std::string& line);

    std::string m_settings;
    std::vector<std::string> m_steps; // lines
    std::size_t m_size = 0;           // bytes in them
    unsigned m_revision = 0;
    bool m_looksAway = false;
    Duration m_base{0};            // that the run loop's time is counted from
    Duration m_played{0};          // how far the flow's own time has come
    Duration m_due{0};             // until when something may still happen by itself
    std::vector<CGPoint> m_finger; // its way; empty while it is up
    bool m_fingerScrolls = false;
    std::optional<Wheel> m_wheel;       // of the last step
    std::optional<std::string> m_typed; // in the last step
};
