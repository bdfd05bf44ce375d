#pragma once

#include "game/CategoriesVC.h"

#include "platform/messages/MSMessagesAppViewController.h"
#include "platform/uikit/window/UITouch.h"
#include "platform/uikit/window/UIWindow.h"

#include <filesystem>
#include <memory>

namespace bench {

constexpr CGSize screenSize{393, 852};
constexpr int screenScale = 3;

/// What a host does before it makes anything of the extension.
void openBundle(const std::filesystem::path& bundle);

/// The extension over the whole screen of a phone of 393 x 852 points, with the real clock and no conversation around
/// it. One a process.
class ExtensionScreen {
public:
    explicit ExtensionScreen(const std::filesystem::path& bundle);
    ~ExtensionScreen();
    ExtensionScreen(const ExtensionScreen&) = delete;
    ExtensionScreen& operator=(const ExtensionScreen&) = delete;

    /// Runs the main queue until the content is shown; laid out, not painted.
    void waitForContent();
    /// Runs what the main queue has and lays the window out.
    void settle();

    /// Opens the dropdown and puts a finger on one of its rows.
    void touchGroup(int row);
    /// Takes the finger away, which chooses the group.
    void liftFinger();

    [[nodiscard]] UIWindow& window() { return *m_window; }
    [[nodiscard]] CategoriesVC& screen() { return *m_screen; }
    [[nodiscard]] UITableView& table() { return *m_screen->tableView; }

private:
    void send(UITouchPhase phase);

    std::shared_ptr<UIWindow> m_window;
    std::shared_ptr<MSMessagesAppViewController> m_controller;
    std::shared_ptr<CategoriesVC> m_screen;
    std::shared_ptr<UITouch> m_finger;
};

} // namespace bench
