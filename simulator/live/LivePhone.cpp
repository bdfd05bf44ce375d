#include "simulator/live/LivePhone.h"

#include "game/CategoriesVC.h"
#include "platform/uikit/controls/UITextField.h"
#include "simulator/conversation/Finger.h"
#include "simulator/conversation/ScreenNarrator.h"
#include "simulator/live/TouchableParts.h"

#include <cmath>
#include <cstdlib>

using Style = MSMessagesAppPresentationStyle;

LivePhone::LivePhone(LiveShow show) : m_show(std::move(show)) {
    begin();
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

void LivePhone::begin() {
    end();
    ++m_run;
    openBundle();
    m_host = std::make_shared<ConversationHost>(m_show.device, m_show.participants);
    m_host->window().setUserInterfaceStyle(m_appearance);
    m_screen.emplace(*m_host);
    if (m_canLaunch) {
        m_host->activate(nullptr);
    }
}

void LivePhone::restart() {
    m_kept.reset();
    begin();
}

void LivePhone::reload() {
    openBundle();
    if (hasErrors(m_findings)) {
        return;
    }
    Kept kept;
    kept.isCompact = m_host->isOpen() && m_host->style() == Style::compact;
    if (const CategoriesVC* screen = shownCategoryScreen(*m_host)) {
        kept.group = rawValue(screen->currentOption());
        kept.offset = screen->tableView->contentOffset();
    }
    begin();
    if (!kept.isCompact) {
        m_host->changeStyle(Style::expanded);
    }
    m_kept = std::move(kept);
}

void LivePhone::afterTurn() {
    if (!m_kept) {
        return;
    }
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

void LivePhone::setDevice(const Device& device) {
    m_show.device = device;
    restart();
}

void LivePhone::setAppearance(UIUserInterfaceStyle appearance) {
    m_appearance = appearance;
    m_host->window().setUserInterfaceStyle(appearance);
}

void LivePhone::setPresentation(std::optional<Style> presentation) {
    if (!presentation) {
        if (m_host->isOpen()) {
            touch(UITouchPhase::cancelled, {});
            m_host->resign();
            m_host->close();
        }
    } else if (m_canLaunch) {
        if (!m_host->isOpen()) {
            m_host->activate(nullptr);
        }
        m_host->changeStyle(*presentation);
    }
}

bool LivePhone::tapElement(const Selector& selector) {
    const std::optional<ScreenElement> element = ElementSearch(m_host->window()).find(selector);
    const std::optional<CGPoint> point = element ? element->pointToTouch() : std::nullopt;
    if (point) {
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
    if (phase != UITouchPhase::began) {
        touch->moveTo(inWindow(place), phase);
    }
    UIEvent event(TouchSet{touch});
    m_host->window().sendEvent(event);
}

void LivePhone::touch(UITouchPhase phase, CGPoint place) {
    if (phase == UITouchPhase::began) {
        touch(UITouchPhase::cancelled, place); // a finger whose end nobody told
        m_host->forgetOpenedLink();
        if (canTouchExtension(place)) {
            m_touch = std::make_shared<UITouch>(inWindow(place));
            report(place, phase);
        } else {
            m_gestureStart = place;
        }
        return;
    }
    const bool ends = phase != UITouchPhase::moved;
    if (m_touch) {
        report(place, phase);
        m_touch = ends ? nullptr : m_touch;
    } else if (m_gestureStart && ends) {
        const CGPoint start = *std::exchange(m_gestureStart, std::nullopt);
        if (phase == UITouchPhase::ended) {
            finishGesture(start, place);
        }
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
    } else if (identifier == extensionButtonIdentifier && m_canLaunch) {
        m_host->activate(nullptr);
    } else if (identifier.compare(0, bubble.size(), bubble) == 0) {
        openFrom(static_cast<std::size_t>(std::atoi(identifier.c_str() + bubble.size())));
    }
}

void LivePhone::openFrom(std::size_t arrived) {
    if (m_canLaunch) {
        const ArrivedMessage& message = m_host->arrivedMessages().at(arrived);
        m_host->activate(m_host->makeMessage(message.from, message.link));
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
    }
}

void LivePhone::type(const std::string& text) {
    const auto field = std::dynamic_pointer_cast<UITextField>(UIResponder::firstResponder());
    if (!field) {
        return;
    }
    if (text == "\n") {
        field->pressReturn();
    } else if (text == "\b") {
        const std::string before = field->text().value_or("");
        const std::size_t last = before.empty() ? 0 : utf16Length(Finger::keystrokes(before).back());
        (void)field->replaceCharactersInRange(NSMakeRange(utf16Length(before) - last, last), "");
    } else {
        (void)field->insertText(text);
    }
}
