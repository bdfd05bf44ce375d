#include "simulator/live/LivePhone.h"

#include "game/CategoriesVC.h"
#include "platform/uikit/controls/UITextField.h"
#include "simulator/conversation/ScreenNarrator.h"
#include "simulator/live/TouchableParts.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

using Style = MSMessagesAppPresentationStyle;

namespace {

const char* nameOf(UIUserInterfaceStyle appearance) {
    return appearance == UIUserInterfaceStyle::dark ? "dark" : "light";
}

/// Flows write places with two decimals.
CGPoint rounded(CGPoint place) {
    constexpr CGFloat parts = 100;
    return {std::round(place.x * parts) / parts, std::round(place.y * parts) / parts};
}

std::string linkText(const ArrivedMessage& message) {
    return message.link ? ", url: " + written(message.link->absoluteString()) : "";
}

} // namespace

LivePhone::LivePhone(LiveShow show) : m_show(std::move(show)) {
    restart();
}

LivePhone::~LivePhone() {
    end();
    MainRunLoop::shared().reset();
}

void LivePhone::end() {
    m_finger.reset();
    m_gestureStart.reset();
    m_screen.reset();
    if (m_host) {
        m_host->close();
        m_host = nullptr;
    }
}

void LivePhone::dropWhatIsDue() {
    MainRunLoop::shared().useVirtualClock();
    m_recorder.clockBegan();
}

void LivePhone::openBundle() {
    dropWhatIsDue(); // nobody may be reading the bundle that is replaced
    const Result<BundleFindings> found = m_show.open();
    m_findings = found ? found.value().all : Findings{found.failure().in("")};
    m_canLaunch = found && found.value().canLaunch;
}

void LivePhone::begin(const std::vector<ArrivedMessage>& arrived) {
    end();
    dropWhatIsDue();
    ++m_run;
    m_linksRecorded = 0;
    m_host = std::make_shared<ConversationHost>(m_show.device, m_show.participants);
    m_host->window().setUserInterfaceStyle(m_appearance);
    for (const ArrivedMessage& message : arrived) {
        m_host->arrive(message);
    }
    m_screen.emplace(*m_host);
}

void LivePhone::restart() {
    openBundle();
    beginAnew();
}

void LivePhone::beginAnew() {
    m_kept.reset();
    begin({});
    m_recorder.begin(m_show);
    if (m_appearance != UIUserInterfaceStyle::light) {
        m_recorder.did("setAppearance", nameOf(m_appearance));
    }
    launch();
}

void LivePhone::launch() {
    if (m_canLaunch) {
        m_recorder.did("launchApp", m_loadingTakes == 0 ? "" : "{" + loadingTakesText() + "}");
        activate(nullptr);
    }
}

void LivePhone::activate(const std::shared_ptr<MSMessage>& bubble) {
    MainRunLoop::shared().setBackgroundLatency(std::chrono::milliseconds(m_loadingTakes));
    m_host->activate(bubble);
    m_host->settle();
}

std::string LivePhone::loadingTakesText() const {
    return "loadingTakes: " + std::to_string(m_loadingTakes);
}

void LivePhone::reload() {
    openBundle();
    if (hasErrors(m_findings)) {
        return;
    }
    if (m_host->events().empty()) { // nothing could be shown so far
        beginAnew();
        return;
    }
    const bool wasOpen = m_host->isOpen();
    Kept kept = whatToKeep();
    begin(std::vector(m_host->arrivedMessages()));
    if (wasOpen && m_canLaunch) {
        activate(nullptr);
        m_host->changeStyle(kept.isCompact ? Style::compact : Style::expanded);
        m_kept = std::move(kept);
    }
}

/// What an earlier reload has not brought back yet is still to be brought back.
LivePhone::Kept LivePhone::whatToKeep() const {
    Kept kept = m_kept.value_or(Kept());
    kept.isCompact = kept.isCompact || (m_host->isOpen() && m_host->style() == Style::compact);
    const CategoriesVC* screen = shownCategoryScreen(*m_host);
    if (screen != nullptr && !kept.group) {
        kept.group = rawValue(screen->currentOption());
        kept.offset = screen->tableView->contentOffset();
    }
    return kept;
}

void LivePhone::passTime(std::chrono::milliseconds time) {
    MainRunLoop& loop = MainRunLoop::shared();
    const MainRunLoop::Duration end = loop.now() + time;
    do {
        m_recorder.timePassed(); // it sees what is about to fall due
        loop.advance(std::clamp(loop.nextDueTime().value_or(end), loop.now(), end) - loop.now());
        settle();
    } while (loop.now() < end);
}

void LivePhone::settle() {
    m_host->settle();
    if (m_kept) {
        m_recorder.lookAway(true); // it has been written down
        bringBack();
        m_recorder.lookAway(false);
    }
    for (const auto& links = m_host->links(); m_linksRecorded < links.size(); ++m_linksRecorded) {
        m_recorder.did("assertLink", written(links[m_linksRecorded].url.absoluteString()));
    }
    m_recorder.timePassed();
}

void LivePhone::bringBack() {
    const CategoriesVC* screen = shownCategoryScreen(*m_host);
    if (screen != nullptr && !screen->arrAllCategories().empty() && m_kept->group) {
        setGroup(*std::exchange(m_kept->group, std::nullopt));
        m_host->settle();
        screen->tableView->setContentOffset(*m_kept->offset);
    }
    if (m_kept->isCompact && m_host->style() == Style::expanded) { // which the extension asks for when it is opened
        m_host->changeStyle(Style::compact);
        m_kept->isCompact = false;
    }
    if (!m_kept->group && !m_kept->isCompact) {
        m_kept.reset();
    }
}

// Settings.

void LivePhone::setDevice(Device device) {
    device.textSize = m_show.device.textSize;
    device.direction = m_show.device.direction;
    m_show.device = std::move(device);
    restart();
}

void LivePhone::setAppearance(UIUserInterfaceStyle appearance) {
    if (m_appearance != appearance) {
        m_recorder.did("setAppearance", nameOf(appearance));
    }
    m_appearance = appearance;
    m_host->window().setUserInterfaceStyle(appearance);
}

void LivePhone::setPresentation(std::optional<Style> presentation) {
    if (!presentation) {
        if (m_host->isOpen()) {
            touch(UITouchPhase::cancelled, {});
            m_recorder.did("close");
            m_host->forgetOpenedLink();
            m_host->resign();
            m_host->close();
        }
    } else if (m_canLaunch) {
        if (!m_host->isOpen()) {
            launch();
        }
        if (m_host->style() != *presentation || m_host->openedLink()) {
            m_recorder.did("setStyle", ::nameOf(*presentation));
        }
        m_host->forgetOpenedLink();
        m_host->changeStyle(*presentation);
    }
}

bool LivePhone::tapElement(const Selector& selector) {
    const std::optional<ScreenElement> element = ElementSearch(m_host->window()).find(selector);
    const std::optional<CGPoint> point = element ? element->pointToTouch() : std::nullopt;
    if (point) {
        m_recorder.did("tapOn", written(selector));
        Finger(*m_host).tap(*point);
    }
    return point.has_value();
}

void LivePhone::setGroup(const std::string& group) {
    m_host->settle();
    const CategoriesVC* screen = shownCategoryScreen(*m_host);
    if (screen == nullptr || rawValue(screen->currentOption()) == group) {
        return;
    }
    if (!screen->viewDropDown->isHidden() || tapElement({.text = {}, .id = "btnDropdown", .index = {}})) {
        (void)tapElement({.text = group, .id = {}, .index = {}});
    }
}

void LivePhone::setLoadingTakes(int milliseconds) {
    m_loadingTakes = milliseconds;
}

void LivePhone::setParticipants(std::vector<std::string> participants) {
    m_show.participants = std::move(participants);
    restart();
}

void LivePhone::arrive(ArrivedMessage message) {
    m_recorder.did("receiveMessage",
                   "{from: " + written(message.from) + ", text: " + written(message.text) + linkText(message) + "}");
    m_host->arrive(std::move(message));
    m_screen->conversationChanged();
}

// The finger.

bool LivePhone::canTouchExtension(CGPoint place) const {
    return m_host->isOpen() && !hasErrors(m_findings) && m_host->window().frame().contains(place);
}

CGPoint LivePhone::inWindow(CGPoint place) const {
    const CGPoint origin = m_host->window().frame().origin;
    return {place.x - origin.x, place.y - origin.y};
}

void LivePhone::report(UITouchPhase phase, CGPoint place) {
    m_fingerPlace = inWindow(place);
    m_recorder.touched(m_host->window(), phase, m_fingerPlace);
    m_finger->touch(phase, m_fingerPlace);
}

void LivePhone::touch(UITouchPhase phase, CGPoint where) {
    const CGPoint place = rounded(where);
    if (phase == UITouchPhase::began) {
        touch(UITouchPhase::cancelled, place); // a finger whose end nobody told
        beginTouch(place);
    } else if (m_finger) {
        continueTouch(phase, place);
    } else if (m_gestureStart && phase != UITouchPhase::moved) {
        const CGPoint start = *std::exchange(m_gestureStart, std::nullopt);
        if (phase == UITouchPhase::ended) {
            finishGesture(start, place);
        }
    }
}

void LivePhone::beginTouch(CGPoint place) {
    if (canTouchExtension(place)) {
        m_finger.emplace(*m_host);
        report(UITouchPhase::began, place);
    } else {
        m_gestureStart = place;
    }
}

/// A finger is lifted where it was seen last, and seen once at each place that it comes to.
void LivePhone::continueTouch(UITouchPhase phase, CGPoint place) {
    if (phase != UITouchPhase::cancelled && m_fingerPlace != inWindow(place)) {
        report(UITouchPhase::moved, place);
    }
    if (phase != UITouchPhase::moved) {
        report(phase, place);
        m_finger.reset();
    }
}

void LivePhone::tap(CGPoint place) {
    touch(UITouchPhase::began, place);
    touch(UITouchPhase::ended, place);
}

void LivePhone::finishGesture(CGPoint start, CGPoint end) {
    constexpr CGFloat slip = 10;   // a finger that goes no further has tapped
    constexpr CGFloat stroke = 30; // one that goes this far has dragged
    const std::string identifier = surroundingPartAt(m_screen->conversation(), start);
    const CGFloat down = end.y - start.y;
    if (std::hypot(end.x - start.x, down) < slip) {
        tapSurroundings(identifier);
    } else if (identifier == handleIdentifier && std::abs(down) >= stroke) {
        const bool closes = down > 0 && m_host->style() == Style::compact;
        setPresentation(closes ? std::nullopt : std::optional(down > 0 ? Style::compact : Style::expanded));
    }
}

void LivePhone::tapSurroundings(const std::string& identifier) {
    const std::string bubble = bubbleIdentifier;
    if (identifier == handleIdentifier) {
        setPresentation(m_host->style() == Style::compact ? Style::expanded : Style::compact);
    } else if (identifier == extensionButtonIdentifier && m_host->isOpen()) {
        setPresentation(std::nullopt);
    } else if (identifier == extensionButtonIdentifier) {
        launch();
    } else if (identifier.compare(0, bubble.size(), bubble) == 0) {
        openFrom(static_cast<std::size_t>(std::atoi(identifier.c_str() + bubble.size())));
    }
}

void LivePhone::openFrom(std::size_t arrived) {
    if (m_canLaunch) {
        const ArrivedMessage& message = m_host->arrivedMessages().at(arrived);
        m_recorder.did("openBubble", "{from: " + written(message.from) + linkText(message) +
                                         (m_loadingTakes == 0 ? "" : ", " + loadingTakesText()) + "}");
        activate(m_host->makeMessage(message.from, message.link));
    }
}

void LivePhone::wheel(CGPoint place, CGFloat down) {
    if (!canTouchExtension(place)) {
        return;
    }
    UIView* at = m_host->window().hitTestWithEvent(inWindow(place), nullptr).get();
    while (at != nullptr && dynamic_cast<UIScrollView*>(at) == nullptr) {
        at = at->superview();
    }
    if (auto* scroll = dynamic_cast<UIScrollView*>(at)) {
        const CGPoint offset = scroll->contentOffset();
        scroll->setContentOffset({offset.x, offset.y + down});
        const CGFloat scrolled = scroll->contentOffset().y - offset.y;
        if (scrolled != 0) {
            m_host->forgetOpenedLink();
            m_recorder.wheeled(m_host->window(), *scroll, scrolled);
        }
    }
}

void LivePhone::type(const std::string& text) {
    const auto field = std::dynamic_pointer_cast<UITextField>(UIResponder::firstResponder());
    if (!field) {
        return;
    }
    m_recorder.typed(text);
    if (text == "\n") {
        field->pressReturn();
    } else if (text == "\b") {
        (void)Finger::eraseLast(*field);
    } else {
        for (const std::string& key : Finger::keystrokes(text)) {
            (void)field->insertText(key);
        }
    }
}
