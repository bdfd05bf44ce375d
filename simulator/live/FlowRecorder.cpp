#include "simulator/live/FlowRecorder.h"

#include "simulator/conversation/Finger.h"
#include "simulator/live/LivePhone.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace {

constexpr std::size_t longest = 256u << 10; // bytes
constexpr std::size_t mostPoints = 10'000;  // of one stroke

std::string topOf(const LiveShow& show) {
    const bool isMirrored = show.device.direction == UIUserInterfaceLayoutDirection::rightToLeft;
    std::string text = "name: Recorded\ndevice: " + written(show.device.name) +
                       "\nparticipants: " + written(show.participants) + "\n" +
                       (isMirrored ? "direction: rightToLeft\n" : "") +
                       (show.scene.empty() ? "" : "scene: " + show.scene + "\n");
    std::vector<std::string> without;
    std::string replaced;
    for (const ResourceOverride& resource : show.overrides) {
        if (resource.file) {
            const std::string file = std::filesystem::absolute(*resource.file).string();
            replaced += "  - {name: " + written(resource.name) + ", file: " + written(file) + "}\n";
        } else {
            without.push_back(resource.name);
        }
    }
    text += without.empty() ? "" : "withoutResource: " + written(without) + "\n";
    return text + (replaced.empty() ? "" : "resource:\n" + replaced) + "---\n";
}

std::string line(const std::string& command, const std::string& value) {
    return "- " + command + (value.empty() ? "" : ": " + value) + "\n";
}

/// A swipe may take the time that it usually takes when nothing can happen meanwhile.
SwipeTime swipeTime() {
    return MainRunLoop::shared().nextDueTime() ? SwipeTime::none : SwipeTime::usual;
}

} // namespace

void FlowRecorder::begin(const LiveShow& show) {
    const unsigned revision = m_revision + 1;
    *this = FlowRecorder();
    m_revision = revision;
    m_settings = topOf(show);
    if (show.device.textSize != UIContentSizeCategory::large) {
        did("setTextSize", textSizeNames().at(static_cast<std::size_t>(show.device.textSize)));
    }
}

void FlowRecorder::clockBegan() {
    m_written = MainRunLoop::shared().now();
    m_due = m_written;
}

void FlowRecorder::timePassed() {
    const std::optional<Duration> due = MainRunLoop::shared().nextDueTime();
    if (due) {
        m_due = std::max(m_due, *due);
    } else if (m_finger.empty()) {
        waitUntil(m_due);
    }
}

/// The phone's time goes in whole milliseconds, as a flow's.
void FlowRecorder::waitUntil(Duration time) {
    const auto missing = std::chrono::duration_cast<std::chrono::milliseconds>(time - m_written);
    if (missing > 0ms && !m_steps.empty() && !m_looksAway) {
        m_written = time;
        add(line("wait", std::to_string(missing.count())));
    }
}

void FlowRecorder::did(const std::string& command, const std::string& value) {
    if (!m_looksAway) {
        const Duration now = MainRunLoop::shared().now();
        waitUntil(std::min(m_due, now));
        m_written = now; // nothing was due in the time that the flow leaves out
        add(line(command, value));
    }
}

void FlowRecorder::add(const std::string& step) {
    m_wheel.reset();
    m_typed.reset();
    if (m_size >= longest) {
        return;
    }
    m_size += step.size();
    m_steps.push_back(m_size < longest ? step : "# Here the recording ends: more would be too long.\n");
    ++m_revision;
}

void FlowRecorder::replaceLast(const std::string& step) {
    m_steps.back() = step;
    ++m_revision;
}

void FlowRecorder::touched(UIWindow& window, UITouchPhase phase, CGPoint place) {
    if (phase == UITouchPhase::began) {
        m_finger = {place};
        m_fingerScrolls = listUnder(window, place) != nullptr;
        return;
    }
    if (m_finger.empty()) {
        return;
    }
    if (phase == UITouchPhase::moved && m_finger.size() < mostPoints) {
        m_finger.push_back(place);
    } else if (phase == UITouchPhase::ended) {
        const RecordedStep step = recordedGesture(window, m_finger, m_fingerScrolls, swipeTime());
        did(step.command, step.value);
    }
    if (phase == UITouchPhase::ended || phase == UITouchPhase::cancelled) {
        m_finger.clear();
    }
}

void FlowRecorder::wheeled(UIWindow& window, const UIScrollView& list, CGFloat down) {
    const bool goesOn = m_wheel && m_wheel->list == &list && m_size < longest;
    const CGFloat whole = down + (goesOn ? m_wheel->down : 0);
    const std::optional<RecordedStep> step = recordedScroll(window, list, whole, swipeTime());
    if (!step) {
        return;
    }
    if (goesOn) {
        replaceLast(line(step->command, step->value));
    } else {
        did(step->command, step->value);
    }
    m_wheel = Wheel{&list, whole};
}

void FlowRecorder::typed(const std::string& text) {
    std::vector<std::string> keys = Finger::keystrokes(m_typed.value_or(""));
    if (text == "\n" || (text == "\b" && keys.empty())) {
        add(std::string("# No command of a flow: the ") + (text == "\n" ? "return" : "delete") + " key.\n");
        return;
    }
    std::string whole;
    if (text == "\b") {
        keys.pop_back();
        for (const std::string& key : keys) {
            whole += key;
        }
    } else {
        whole = m_typed.value_or("") + text;
    }
    const std::string step = line("inputText", written(whole));
    m_typed ? replaceLast(step) : did("inputText", written(whole));
    m_typed = whole;
}

std::string FlowRecorder::text() const {
    std::string text = m_settings;
    for (const std::string& step : m_steps) {
        text += step;
    }
    return text;
}
