#include "simulator/live/FlowRecorder.h"

#include "simulator/conversation/Finger.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace {

constexpr std::size_t longest = 256u << 10; // bytes
constexpr std::size_t mostPoints = 10'000;  // of one stroke
constexpr std::chrono::milliseconds swipeTakes(400);

std::string topOf(const RecordedSettings& settings) {
    std::string text = "name: Recorded\ndevice: " + written(settings.device) +
                       "\nparticipants: " + written(settings.participants) + "\n";
    if (!settings.scene.empty()) {
        text += "scene: " + settings.scene + "\n";
    }
    std::vector<std::string> without;
    std::string replaced;
    for (const ResourceOverride& resource : settings.overrides) {
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

} // namespace

void FlowRecorder::begin(const RecordedSettings& settings) {
    const unsigned revision = m_revision + 1;
    *this = FlowRecorder();
    m_revision = revision;
    m_settings = topOf(settings);
    if (!settings.textSize.empty()) {
        did("setTextSize", settings.textSize);
    }
}

FlowRecorder::Duration FlowRecorder::elapsed() const {
    return m_base + MainRunLoop::shared().now();
}

void FlowRecorder::clockBeginsAnew() {
    m_base = elapsed();
    m_due = m_played;
}

void FlowRecorder::timePassed() {
    const std::optional<Duration> due = MainRunLoop::shared().nextDueTime();
    if (due) {
        m_due = std::max(m_due, m_base + *due);
    } else if (m_finger.empty()) {
        waitUntil(m_due);
    }
}

/// In whole milliseconds.
void FlowRecorder::waitUntil(Duration time) {
    const auto missing = std::chrono::ceil<std::chrono::milliseconds>(time - m_played);
    if (missing > 0ms && !m_steps.empty() && !m_looksAway) {
        m_played += missing;
        add(line("wait", std::to_string(missing.count())));
    }
}

void FlowRecorder::did(const std::string& command, const std::string& value) {
    if (!m_looksAway) {
        waitUntil(std::min(m_due, elapsed()));
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
        const RecordedStep step = recordedGesture(window, m_finger, m_fingerScrolls);
        did(step.command, step.value);
        m_played += step.command == "swipe" ? swipeTakes : 0ms;
    }
    if (phase == UITouchPhase::ended || phase == UITouchPhase::cancelled) {
        m_finger.clear();
    }
}

void FlowRecorder::wheeled(UIWindow& window, const UIScrollView& list, CGFloat down) {
    const bool goesOn = m_wheel && m_wheel->list == &list && m_size < longest;
    const CGFloat whole = down + (goesOn ? m_wheel->down : 0);
    const std::optional<RecordedStep> step = recordedScroll(window, list, whole);
    if (!step) {
        return;
    }
    if (goesOn) {
        replaceLast(line(step->command, step->value));
    } else {
        did(step->command, step->value);
        m_played += swipeTakes;
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
