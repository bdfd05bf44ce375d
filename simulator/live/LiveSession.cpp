#include "simulator/live/LiveSession.h"

#include "platform/foundation/DebugConsole.h"
#include "simulator/live/PhoneMessages.h"

#include <algorithm>
#include <utility>

using PageId = PageServer::PageId;

namespace {

constexpr std::size_t longestHistory = 4000;
constexpr std::chrono::milliseconds elementsPause(100); // they are not told for each step of a scroll

std::optional<UITouchPhase> phaseNamed(const std::string& name) {
    static const std::map<std::string, UITouchPhase> phases{{"began", UITouchPhase::began},
                                                            {"moved", UITouchPhase::moved},
                                                            {"ended", UITouchPhase::ended},
                                                            {"cancelled", UITouchPhase::cancelled}};
    const auto found = phases.find(name);
    return found == phases.end() ? std::nullopt : std::optional(found->second);
}

CGPoint placeIn(PageMessage& message) {
    const double x = message.number("x");
    return {x, message.number("y")};
}

} // namespace

LiveSession::LiveSession(LivePhone& phone, Out out) : m_phone(phone), m_out(std::move(out)) {
    setDebugConsoleObserver([this](std::string_view line) {
        dispatch_async(dispatch_get_main_queue(),
                       [this, text = std::string(line)] { remember(debugMessage(milliseconds(), text)); });
    });
}

LiveSession::~LiveSession() {
    setDebugConsoleObserver({});
}

std::int64_t LiveSession::milliseconds() const {
    const auto passed = std::chrono::steady_clock::now() - m_start;
    return std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
}

// Pages.

void LiveSession::came(PageId page) {
    m_pages[page] = {};
    m_out.text(page, stateMessage(m_phone));
    m_out.text(page, findingsMessage(m_phone.findings()));
    m_out.text(page, m_flow = flowMessage(m_phone.recorder().text()));
    for (const std::string& text : m_history) {
        m_out.text(page, text);
    }
    if (!m_elements.empty()) {
        m_out.text(page, m_elements);
    }
    m_elementsAreDue = true;
}

void LiveSession::gone(PageId page) {
    m_pages.erase(page);
    if (m_toucher == page) {
        m_toucher.reset();
        m_phone.touch(UITouchPhase::cancelled, {});
    }
}

void LiveSession::said(PageId page, const std::string& text) {
    const auto known = m_pages.find(page);
    if (known == m_pages.end()) {
        return; // it was refused, and this was on its way
    }
    Result<PageMessage> message = PageMessage::parse(text);
    if (!message) {
        m_out.refuse(page, message.failure().what);
        return;
    }
    if (message.value().type() != "shown") {
        ++known->second.heard;
        known->second.isSettled = false;
    }
    const auto handler = handlers().find(message.value().type());
    if (handler == handlers().end()) {
        message.value().complain("is not known");
    } else {
        (this->*handler->second)(page, message.value());
    }
    m_phone.settle();
    if (message.value().complaint()) {
        m_out.refuse(page, message.value().complaint()->what);
    }
}

const std::map<std::string, LiveSession::Handler>& LiveSession::handlers() {
    static const std::map<std::string, Handler> table{
        {"shown", &LiveSession::heardShown},     {"again", &LiveSession::heardAgain},
        {"touch", &LiveSession::heardTouch},     {"wheel", &LiveSession::heardWheel},
        {"tap", &LiveSession::heardTap},         {"key", &LiveSession::heardKey},
        {"set", &LiveSession::heardSet},         {"restart", &LiveSession::heardRestart},
        {"message", &LiveSession::heardMessage}, {"inspect", &LiveSession::heardInspect},
    };
    return table;
}

// What pages do. A message with a complaint does nothing.

void LiveSession::heardShown(PageId page, PageMessage& message) {
    Page& known = m_pages.at(page);
    const double number = message.number("number");
    if (!known.isUnderWay || number != known.lastNumber) {
        message.complain("no picture of that number is under way");
        return;
    }
    known.isUnderWay = false;
}

void LiveSession::heardAgain(PageId page, PageMessage& /*message*/) {
    m_pages.at(page).pending = {};
}

void LiveSession::heardTouch(PageId page, PageMessage& message) {
    const std::optional<UITouchPhase> phase = phaseNamed(message.text("phase"));
    const CGPoint place = placeIn(message);
    if (!phase) {
        message.complain("the phase is not known");
    }
    if (message.complaint() || (*phase != UITouchPhase::began && m_toucher != page)) {
        return;
    }
    const bool isDown = *phase == UITouchPhase::began || *phase == UITouchPhase::moved;
    m_toucher = isDown ? std::optional(page) : std::nullopt;
    m_phone.touch(*phase, place);
}

void LiveSession::heardWheel(PageId /*page*/, PageMessage& message) {
    const CGPoint place = placeIn(message);
    const double down = message.number("dy");
    if (!message.complaint()) {
        m_phone.wheel(place, down);
    }
}

void LiveSession::heardTap(PageId /*page*/, PageMessage& message) {
    const CGPoint place = placeIn(message);
    if (!message.complaint()) {
        m_phone.tap(place);
    }
}

void LiveSession::heardKey(PageId /*page*/, PageMessage& message) {
    const std::string text = message.text("text");
    if (!message.complaint()) {
        m_phone.type(text);
    }
}

void LiveSession::heardSet(PageId /*page*/, PageMessage& message) {
    if (message.has("device")) {
        const Result<Device> device = deviceNamed(message.text("device"));
        device ? m_phone.setDevice(device.value()) : message.complain(device.failure().what);
    } else if (message.has("appearance")) {
        m_phone.setAppearance(message.text("appearance") == "dark" ? UIUserInterfaceStyle::dark
                                                                   : UIUserInterfaceStyle::light);
    } else if (message.has("presentation")) {
        const std::string name = message.text("presentation");
        m_phone.setPresentation(name == "closed"
                                    ? std::nullopt
                                    : std::optional(name == "compact" ? MSMessagesAppPresentationStyle::compact
                                                                      : MSMessagesAppPresentationStyle::expanded));
    } else if (message.has("group")) {
        m_phone.setGroup(message.text("group"));
    } else if (message.has("loadingTakes")) {
        m_phone.setLoadingTakes(static_cast<int>(std::max(0.0, message.number("loadingTakes"))));
    } else if (message.has("participants")) {
        const std::vector<std::string> names = message.texts("participants");
        if (!message.complaint()) {
            m_phone.setParticipants(names);
        }
    } else {
        message.complain("nothing that can be set");
    }
}

void LiveSession::heardRestart(PageId /*page*/, PageMessage& /*message*/) {
    m_phone.restart();
}

void LiveSession::heardMessage(PageId /*page*/, PageMessage& message) {
    const std::string link = message.text("link");
    const std::optional<NSURL> url = NSURL::URLWithString(link);
    if (!link.empty() && !url) {
        message.complain("'link' is no address");
    }
    ArrivedMessage arrived{message.text("from"), message.text("text"), url};
    if (!message.complaint()) {
        m_phone.arrive(std::move(arrived));
    }
}

void LiveSession::heardInspect(PageId page, PageMessage& message) {
    Page& known = m_pages.at(page);
    known.inspects = message.flag("on");
    known.tree.clear();
    m_elementsAreDue = true;
}

// What pages are told.

void LiveSession::tellAll(const std::string& text) {
    for (auto& [page, state] : m_pages) {
        state.isSettled = false;
        m_out.text(page, text);
    }
}

void LiveSession::tellIfNew(std::string& told, std::string text) {
    if (told != text) {
        told = std::move(text);
        tellAll(told);
    }
}

void LiveSession::remember(std::string text) {
    tellAll(text);
    m_history.push_back(std::move(text));
    if (m_history.size() > longestHistory) {
        m_history.pop_front();
    }
}

void LiveSession::update() {
    if (std::exchange(m_run, m_phone.run()) != m_phone.run()) {
        m_linksTold = 0;
        m_requestsTold = 0;
        m_elementsAreDue = true;
        for (auto& [page, state] : m_pages) {
            state.pending = {};
        }
    }
    tellEvents();
    if (!m_pages.empty()) {
        tellIfNew(m_state, stateMessage(m_phone));
        tellIfNew(m_findings, findingsMessage(m_phone.findings()));
        sendPictures();
        m_elementsAreDue = m_elementsAreDue || m_flowRevision != m_phone.recorder().revision();
        tellElements();
        tellSettled();
    }
}

void LiveSession::tellEvents() {
    const auto& links = m_phone.host().links();
    for (; m_linksTold < links.size(); ++m_linksTold) {
        remember(linkMessage(milliseconds(), links[m_linksTold].url));
    }
    const auto& requests = m_phone.host().styleRequests();
    for (; m_requestsTold < requests.size(); ++m_requestsTold) {
        remember(styleRequestMessage(milliseconds(), requests[m_requestsTold]));
    }
}

void LiveSession::sendPictures() {
    const ScreenChange change = m_phone.screen().update();
    const Bitmap& screen = m_phone.screen().bitmap();
    m_elementsAreDue = m_elementsAreDue || !change.isEmpty();
    for (auto& [id, page] : m_pages) {
        page.pending.add(change, {0, 0, screen.width(), screen.height()});
        if (!page.isUnderWay && !page.pending.isEmpty()) {
            page.isUnderWay = true;
            page.isSettled = false;
            m_out.bytes(id, page.pending.take(screen, ++page.lastNumber));
        }
    }
}

void LiveSession::tellElements() {
    const auto now = std::chrono::steady_clock::now();
    if (m_elementsAreDue && now >= m_elementsNext) {
        m_elementsAreDue = false;
        m_elementsNext = now + elementsPause;
        tellIfNew(m_elements, elementsMessage(touchableParts(m_phone.host(), m_phone.screen().conversation())));
        tellTrees();
        if (std::exchange(m_flowRevision, m_phone.recorder().revision()) != m_phone.recorder().revision()) {
            tellIfNew(m_flow, flowMessage(m_phone.recorder().text()));
        }
    }
}

void LiveSession::tellTrees() {
    for (auto& [id, page] : m_pages) {
        std::string tree = page.inspects ? treeMessage(m_phone) : "";
        if (tree != page.tree) {
            page.isSettled = false;
            m_out.text(id, tree);
            page.tree = std::move(tree);
        }
    }
}

/// Nothing has been told since, and everything that followed from what a page did has been shown.
void LiveSession::tellSettled() {
    for (auto& [id, page] : m_pages) {
        if (!page.isSettled && !page.isUnderWay && page.pending.isEmpty() && !m_elementsAreDue) {
            page.isSettled = true;
            m_out.text(id, settledMessage(page.heard));
        }
    }
}

std::optional<std::chrono::nanoseconds> LiveSession::patience() const {
    if (!m_elementsAreDue || m_pages.empty()) {
        return std::nullopt;
    }
    return std::max(std::chrono::nanoseconds(0),
                    std::chrono::nanoseconds(m_elementsNext - std::chrono::steady_clock::now()));
}
