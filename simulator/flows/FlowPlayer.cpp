#include "simulator/flows/FlowPlayer.h"

#include "platform/foundation/DebugConsole.h"
#include "platform/uikit/view/ViewSystem.h"

namespace {

constexpr std::chrono::milliseconds patience(7000);
constexpr std::chrono::milliseconds step(50);

} // namespace

FlowPlayer::FlowPlayer(const Flow& flow, Device device, ConversationHost::Listener listener, PictureSettings pictures)
    : m_flow(flow), m_pictures(std::move(pictures)) {
    MainRunLoop::shared().useVirtualClock();
    m_host = std::make_shared<ConversationHost>(std::move(device), flow.participants, std::move(listener));
    MainRunLoop::shared().setTurnObserver([this] {
        m_host->window().layoutIfNeeded();
        m_narrator.tell(*m_host);
    });
    setDebugConsoleObserver([this](std::string_view line) { m_debugLines.emplace_back(line); });
    setLayoutReportObserver([this](const std::string& report) { m_host->note("layout", report); });
}

FlowPlayer::~FlowPlayer() {
    m_host->close();
    MainRunLoop::shared().reset();
    setDebugConsoleObserver({});
    setLayoutReportObserver({});
}

FlowResult FlowPlayer::play() {
    for (const FlowStep& flowStep : m_flow.steps) {
        playStep(flowStep);
    }
    return {m_flow.file,  m_flow.name,     m_host->device().name,   m_host->events(),
            m_debugLines, m_host->links(), m_host->styleRequests(), m_failures};
}

void FlowPlayer::playStep(const FlowStep& flowStep) {
    const std::optional<Failure> failure = flowStep.run(*this);
    m_host->settle();
    m_narrator.tell(*m_host);
    if (failure) {
        m_failures.push_back({Severity::error, m_flow.file, flowStep.place, flowStep.command + ": " + failure->what});
        m_host->note("failure", m_failures.back().describe());
    }
}

bool FlowPlayer::waitUntil(const std::function<bool()>& condition) {
    m_host->settle();
    for (std::chrono::milliseconds waited(0); !condition(); waited += step) {
        if (waited >= patience) {
            return false;
        }
        m_host->advance(step);
    }
    return true;
}

std::optional<ScreenElement> FlowPlayer::find(const Selector& selector) const {
    return ElementSearch(m_host->window()).find(selector);
}

std::optional<ScreenElement> FlowPlayer::waitForElement(const Selector& selector) {
    std::optional<ScreenElement> element;
    waitUntil([&] {
        element = find(selector);
        return element.has_value();
    });
    return element;
}

Failure FlowPlayer::missing(const Selector& selector) {
    if (!m_host->isOpen()) {
        return notOpened();
    }
    const ElementSearch search(m_host->window());
    if (search.exists(selector)) {
        return {selector.describe() + " is there but cannot be seen: hidden, covered or scrolled away"};
    }
    return {"no " + selector.describe() + " on the screen" + search.suggestionFor(selector)};
}

Failure FlowPlayer::notOpened() {
    return {"the extension has not been opened yet; begin with launchApp or openBubble"};
}

std::optional<NSURL> FlowPlayer::nextLink() {
    const auto& links = m_host->links();
    return m_linksAsked < links.size() ? std::optional(links[m_linksAsked++].url) : std::nullopt;
}

std::vector<std::string> FlowPlayer::takeDebugLines() {
    const auto first = m_debugLines.begin() + static_cast<std::ptrdiff_t>(m_debugLinesTaken);
    m_debugLinesTaken = m_debugLines.size();
    return {first, m_debugLines.end()};
}
