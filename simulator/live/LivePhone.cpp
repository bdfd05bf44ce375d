#include "simulator/live/LivePhone.h"

#include "game/CategoriesVC.h"
#include "platform/uikit/controls/UITextField.h"
#include "simulator/conversation/Finger.h"
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

std::string nameOf(UIContentSizeCategory textSize) {
    const auto& names = textSizeNames();
    const auto found =
        std::find_if(names.begin(), names.end(), [&](const auto& name) { return textSizeNamed(name) == textSize; });
    return found == names.end() ? "" : *found;
}

/// Flows write places with two decimals.
CGPoint rounded(CGPoint place) {
    constexpr CGFloat parts = 100;
    return {std::round(place.x * parts) / parts, std::round(place.y * parts) / parts};
}

} // namespace

LivePhone::LivePhone(LiveShow show) : m_show(std::move(show)) {
    restart();
}

LivePhone::~LivePhone() {
    end();
    MainRunLoop::shared().useVirtualClock();
}

void LivePhone::end() {
    m_touch = nullptr;
    m_gestureStart.reset();
    m_screen.reset();
    if (m_host) {
        m_host->close();
        m_host = nullptr;
    }
}

/// Waits for what runs in the background and drops what it has posted.
void LivePhone::startClock() {
    MainRunLoop& loop = MainRunLoop::shared();
    m_recorder.clockBeginsAnew();
    loop.useRealClock();
    loop.setWakeHandler(m_show.wake);
    loop.setBackgroundLatency(std::chrono::milliseconds(m_loadingTakes));
}

void LivePhone::openBundle() {
    startClock(); // nobody may be reading the bundle that is replaced
    const Result<BundleFindings> found = m_show.open();
    m_findings = found ? found.value().all : Findings{found.failure().in("")};
    m_canLaunch = found && found.value().canLaunch;
}

void LivePhone::begin(const std::vector<ArrivedMessage>& arrived) {
    end();
    ++m_run;
    m_linksRecorded = 0;
    openBundle();
    m_host = std::make_shared<ConversationHost>(m_show.device, m_show.participants);
    m_host->window().setUserInterfaceStyle(m_appearance);
    for (const ArrivedMessage& message : arrived) {
        m_host->arrive(message);
    }
    m_screen.emplace(*m_host);
}

RecordedSettings LivePhone::recordedSettings() const {
    const bool usual = m_show.device.textSize == UIContentSizeCategory::large;
    return {m_show.device.name, m_show.scene, usual ? "" : nameOf(m_show.device.textSize), m_show.participants,
            m_show.overrides};
}

void LivePhone::restart() {
    m_kept.reset();
    begin({});
    m_recorder.begin(recordedSettings());
    if (m_appearance != UIUserInterfaceStyle::light) {
        m_recorder.did("setAppearance", nameOf(m_appearance));
    }
    launch();
}

void LivePhone::launch() {
    if (m_canLaunch) {
        m_recorder.did("launchApp",
                       m_loadingTakes == 0 ? "" : "{loadingTakes: " + std::to_string(m_loadingTakes) + "}");
        activate(nullptr);
    }
}

void LivePhone::activate(const std::shared_ptr<MSMessage>& bubble) {
    m_host->activate(bubble);
    m_recorder.timePassed(); // it has seen what falls due later
}

void LivePhone::reload() {
    openBundle();
    if (hasErrors(m_findings)) {
        return;
    }
    if (m_host->events().empty()) { // nothing could be shown so far
        restart();
        return;
    }
    const bool wasOpen = m_host->isOpen();
    Kept kept = whatToKeep();
    begin(std::vector(m_host->arrivedMessages()));
    if (wasOpen && m_canLaunch) {
        m_host->activate(nullptr);
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

void LivePhone::afterTurn() {
    if (m_kept) {
        m_recorder.lookAway(true); // it has been written down
        bringBack();
        m_recorder.lookAway(false);
    }
    recordLinks();
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

void LivePhone::recordLinks() {
    const auto& links = m_host->links();
    for (; m_linksRecorded < links.size(); ++m_linksRecorded) {
        m_recorder.did("assertLink", written(links[m_linksRecorded].url.absoluteString()));
    }
}

// Settings.

void LivePhone::setDevice(const Device& device) {
    m_show.device = device;
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
    m_host->forgetOpenedLink();
    if (!presentation) {
        if (m_host->isOpen()) {
            touch(UITouchPhase::cancelled, {});
            m_recorder.did("close");
            m_host->resign();
            m_host->close();
        }
    } else if (m_canLaunch) {
        if (!m_host->isOpen()) {
            launch();
        }
        if (m_host->style() != *presentation) {
            m_recorder.did("setStyle", ::nameOf(*presentation));
        }
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
    MainRunLoop::shared().setBackgroundLatency(std::chrono::milliseconds(milliseconds));
}

void LivePhone::setParticipants(std::vector<std::string> participants) {
    m_show.participants = std::move(participants);
    restart();
}

void LivePhone::arrive(ArrivedMessage message) {
    const std::string link = message.link ? ", url: " + written(message.link->absoluteString()) : "";
    m_recorder.did("receiveMessage",
                   "{from: " + written(message.from) + ", text: " + written(message.text) + link + "}");
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

void LivePhone::report(CGPoint place, UITouchPhase phase) {
    const std::shared_ptr<UITouch> touch = m_touch; // a handler may begin everything anew
    m_recorder.touched(m_host->window(), phase, inWindow(place));
    if (phase != UITouchPhase::began) {
        touch->moveTo(inWindow(place), phase);
    }
    UIEvent event(TouchSet{touch});
    m_host->window().sendEvent(event);
}

void LivePhone::touch(UITouchPhase phase, CGPoint where) {
    const CGPoint place = rounded(where);
    if (phase == UITouchPhase::began) {
        touch(UITouchPhase::cancelled, place); // a finger whose end nobody told
        beginTouch(place);
    } else if (m_touch) {
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
        m_host->forgetOpenedLink();
        m_touch = std::make_shared<UITouch>(inWindow(place));
        report(place, UITouchPhase::began);
    } else {
        m_gestureStart = place;
    }
}

/// A finger is lifted where it was seen last, and seen once at each place that it comes to.
void LivePhone::continueTouch(UITouchPhase phase, CGPoint place) {
    const bool ends = phase != UITouchPhase::moved;
    if (phase != UITouchPhase::cancelled && m_touch->locationInView(nullptr) != inWindow(place)) {
        report(place, UITouchPhase::moved);
    }
    if (ends && m_touch) {
        report(place, phase);
        m_touch = nullptr;
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
        const std::string link = message.link ? ", url: " + written(message.link->absoluteString()) : "";
        m_recorder.did("openBubble", "{from: " + written(message.from) + link + "}");
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
