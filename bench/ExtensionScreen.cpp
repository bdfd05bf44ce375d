#include "bench/ExtensionScreen.h"

#include "game/CategoriesVC.h"
#include "host/MessagesViewController.h"
#include "ui/UiClasses.h"

#include "platform/dispatch/MainRunLoop.h"
#include "platform/foundation/NSBundle.h"
#include "platform/interface/AssetCatalogReader.h"
#include "platform/messages/MSMessagesAppViewController.h"
#include "platform/uikit/UIKitClasses.h"
#include "platform/uikit/controllers/UIStoryboard.h"
#include "platform/uikit/window/UIScreen.h"
#include "platform/uikit/window/UITouch.h"

#include <condition_variable>
#include <mutex>

namespace bench {

namespace {

/// Sleeps until another thread posts to the main queue.
class Wakeup {
public:
    void signal() {
        const std::lock_guard lock(m_mutex);
        m_signalled = true;
        m_condition.notify_one();
    }
    void wait() {
        std::unique_lock lock(m_mutex);
        m_condition.wait(lock, [this] { return m_signalled; });
        m_signalled = false;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_condition;
    bool m_signalled = false;
};

Wakeup& wakeup() {
    static Wakeup instance;
    return instance;
}

std::shared_ptr<MSConversation> conversation() {
    return std::make_shared<MSConversation>(std::vector<NSUUID>{NSUUID::UUID()}, nullptr);
}

} // namespace

void openBundle(const std::filesystem::path& bundle) {
    registerUIKitClasses();
    registerMessagesClasses();
    registerUiClasses();
    registerHostClasses();
    registerGameClasses();
    NSBundle::setMainBundle(bundle);
    installAssetCatalog();
    UIScreen::mainScreen().configure(screenSize, screenScale);
}

ExtensionScreen::ExtensionScreen(const std::filesystem::path& bundle) {
    MainRunLoop::shared().useRealClock();
    MainRunLoop::shared().setWakeHandler([] { wakeup().signal(); });
    openBundle(bundle);
    m_window = std::make_shared<UIWindow>(CGRect{{0, 0}, screenSize});
    const auto storyboard = UIStoryboard::storyboardWithNameBundle("MainInterface", NSBundle::mainBundle());
    m_controller =
        std::dynamic_pointer_cast<MSMessagesAppViewController>(storyboard->instantiateInitialViewController());
    m_window->setRootViewController(m_controller);
    m_controller->willBecomeActiveWithConversation(conversation());
    m_screen = std::dynamic_pointer_cast<CategoriesVC>(m_controller->childViewControllers().at(0));
    settle();
}

ExtensionScreen::~ExtensionScreen() {
    m_screen = nullptr;
    m_window->setRootViewController(nullptr);
    m_controller = nullptr;
    MainRunLoop::shared().reset();
}

void ExtensionScreen::waitForContent() {
    while (m_screen->sections().empty()) {
        wakeup().wait();
        settle();
    }
}

void ExtensionScreen::settle() {
    MainRunLoop::shared().runUntilIdle();
    m_window->layoutIfNeeded();
}

void ExtensionScreen::touchGroup(int row) {
    m_screen->btnDropdownWithSender(nullptr);
    settle();
    UITableView& list = *m_screen->tblDropDown();
    const CGRect rect = list.convertRectToView(list.rectForRowAtIndexPath({.section = 0, .row = row}), nullptr);
    m_finger =
        std::make_shared<UITouch>(CGPoint{rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2});
    send(UITouchPhase::began);
}

void ExtensionScreen::liftFinger() {
    send(UITouchPhase::ended);
    m_finger = nullptr;
}

void ExtensionScreen::send(UITouchPhase phase) {
    if (phase != UITouchPhase::began) {
        m_finger->moveTo(m_finger->locationInView(nullptr), phase);
    }
    UIEvent event(TouchSet{m_finger});
    m_window->sendEvent(event);
    settle();
}

} // namespace bench
