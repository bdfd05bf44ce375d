#include "simulator/flows/FlowPlayer.h"

#include "platform/foundation/DebugConsole.h"
#include "platform/uikit/view/ViewSystem.h"
#include "simulator/conversation/ViewTree.h"
#include "simulator/pictures/PictureFile.h"
#include "simulator/pictures/ScreenPicture.h"

#include <utility>

namespace {

constexpr std::chrono::milliseconds interval(50);
constexpr std::size_t mostSteps = 2000; // repetitions must not go on for ever

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
    setLayoutReportObserver([this](const std::string& report, const NSObject&) { m_host->note("layout", report); });
}

FlowPlayer::~FlowPlayer() {
    m_host->close();
    MainRunLoop::shared().reset();
    setDebugConsoleObserver({});
    setLayoutReportObserver({});
}

FlowResult FlowPlayer::play() {
    playSteps(m_flow.steps);
    return result();
}

FlowResult FlowPlayer::result() const {
    return {m_flow.file,  m_flow.name,     m_host->device().name,   m_host->events(),
            m_debugLines, m_host->links(), m_host->styleRequests(), m_failures,
            m_goldens};
}

bool FlowPlayer::playSteps(const FlowSteps& steps) {
    bool havePassed = true;
    for (const FlowStep& step : steps) {
        if (m_stepsPlayed > mostSteps) {
            return false;
        }
        havePassed = playStep(step) && havePassed;
    }
    return havePassed;
}

bool FlowPlayer::playStep(const FlowStep& step) {
    const std::size_t failuresBefore = m_failures.size();
    const FlowStep* const outer = std::exchange(m_step, &step);
    std::optional<Failure> failure;
    if (++m_stepsPlayed > mostSteps) {
        failure = {"the flow has played " + std::to_string(mostSteps) + " commands; it ends here"};
    } else {
        failure = step.run(*this);
    }
    m_host->settle();
    m_narrator.tell(*m_host);
    m_step = &step; // those inside it have come and gone
    if (failure && step.isOptional) {
        m_host->note("optional", step.name + " failed, which is no failure of the flow: " + failure->what);
    } else if (failure) {
        fail(*failure);
    }
    m_step = outer;
    return m_failures.size() == failuresBefore;
}

void FlowPlayer::fail(const Failure& failure) {
    m_failures.push_back(failureNow(failure.what + (m_pictures.showsFailures ? showFailure() : "")));
    m_host->note("failure", m_failures.back().describe());
}

Finding FlowPlayer::failureNow(const std::string& what) const {
    return m_step == nullptr ? Finding{Severity::error, m_flow.file, std::nullopt, what}
                             : Finding{Severity::error, m_step->file, m_step->place, m_step->name + ": " + what};
}

std::string FlowPlayer::showFailure() const {
    const std::string name =
        std::filesystem::path(m_step->file).stem().string() + "-line-" + std::to_string(m_step->place.line) + ".failed";
    const std::string start = (m_pictures.output / name).string();
    std::optional<Failure> failure = savePicture(takePicture(*m_host, PictureExtent::screen), start + ".png");
    if (!failure) {
        failure = writeWholeFile(describeTree(m_host->window(), TreeDetail::withSources), start + ".txt");
    }
    return "\n      " + (failure ? failure->what : "see " + start + ".png and .txt");
}

std::string FlowPlayer::goldenFile(const std::string& start, const std::string& ending) {
    return m_goldens.emplace_back(start + "-" + m_host->device().name + ending);
}

bool FlowPlayer::waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds time) {
    m_host->settle();
    for (std::chrono::milliseconds waited(0); !condition(); waited += interval) {
        if (waited >= time) {
            return false;
        }
        m_host->advance(interval);
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
    const bool isSeen = search.find({selector.text, selector.id, std::nullopt}).has_value(); // some, not the one meant
    if (!isSeen && search.exists(selector)) {
        return {selector.describe() + " is there but cannot be seen: hidden, covered or scrolled away"};
    }
    return {"no " + selector.describe() + " on the screen" + search.insteadOf(selector)};
}

Failure FlowPlayer::unwanted(const Selector& selector) {
    return {selector.describe() + " is visible and should not be"};
}

Failure FlowPlayer::notOpened() {
    return {"the extension is not open; launchApp or openBubble opens it"};
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
