#include "simulator/conversation/ScreenStory.h"

#include "game/CategoriesVC.h"
#include "simulator/conversation/ConversationHost.h"

namespace {

std::string rowsInView(const CategoriesVC& screen) {
    std::string rows;
    for (const NSIndexPath indexPath : screen.tableView->indexPathsForVisibleRows()) {
        const ModeSection& section = screen.sections()[static_cast<std::size_t>(indexPath.section)];
        rows +=
            (rows.empty() ? "; in view: " : " · ") + section.items.at(static_cast<std::size_t>(indexPath.row)).title;
    }
    return rows;
}

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string story(const CategoriesVC& screen) {
    const std::string group = "the screen shows " + rawValue(screen.currentOption());
    if (!screen.viewDropDown->isHidden()) {
        return group + "; the list of groups is open";
    }
    std::size_t modes = 0;
    for (const ModeSection& section : screen.sections()) {
        modes += section.items.size();
    }
    return modes == 0 ? group + ", no modes"
                      : group + ", " + counted(modes, "mode") + " in " + counted(screen.sections().size(), "section") +
                            rowsInView(screen);
}

} // namespace

void ScreenStory::tell(ConversationHost& host) {
    const std::optional<MainRunLoop::Duration> due = MainRunLoop::shared().nextDueTime();
    if (due && *due <= MainRunLoop::shared().now()) {
        return; // what is about to happen may change the screen again at once
    }
    if (!host.isOpen() || host.controller()->childViewControllers().empty()) {
        return;
    }
    const auto* screen = dynamic_cast<CategoriesVC*>(host.controller()->childViewControllers().front().get());
    if (screen == nullptr || !screen->isViewLoaded()) {
        return;
    }
    std::string words = story(*screen);
    if (words != m_told) {
        host.note("screen", words);
        m_told = std::move(words);
    }
}
