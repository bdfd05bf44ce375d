#include "simulator/conversation/ScreenNarrator.h"

#include "game/CategoriesVC.h"
#include "simulator/conversation/ConversationHost.h"

namespace {

std::string rowsInView(const CategoriesVC& screen) {
    std::string rows;
    for (const NSIndexPath indexPath : screen.tableView->indexPathsForVisibleRows()) {
        const ModeSection& section = screen.sections()[static_cast<std::size_t>(indexPath.section)];
        rows += (rows.empty() ? "; in view: " : " · ") +
                section.items().at(static_cast<std::size_t>(indexPath.row)).title();
    }
    return rows;
}

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string describe(const CategoriesVC& screen) {
    const std::string group = "the screen shows " + rawValue(screen.currentOption());
    if (!screen.viewDropDown->isHidden()) {
        return group + "; the list of groups is open";
    }
    std::size_t modes = 0;
    for (const ModeSection& section : screen.sections()) {
        modes += section.items().size();
    }
    return modes == 0 ? group + ", no modes"
                      : group + ", " + counted(modes, "mode") + " in " + counted(screen.sections().size(), "section") +
                            rowsInView(screen);
}

} // namespace

const CategoriesVC* shownCategoryScreen(const ConversationHost& host) {
    if (!host.isOpen() || host.controller()->childViewControllers().empty()) {
        return nullptr;
    }
    const auto* screen = dynamic_cast<CategoriesVC*>(host.controller()->childViewControllers().front().get());
    return screen != nullptr && screen->isViewLoaded() ? screen : nullptr;
}

void ScreenNarrator::tell(ConversationHost& host) {
    const std::optional<MainRunLoop::Duration> due = MainRunLoop::shared().nextDueTime();
    const bool isSettled = !due || *due > MainRunLoop::shared().now();
    const CategoriesVC* screen = isSettled ? shownCategoryScreen(host) : nullptr;
    if (screen == nullptr) {
        return;
    }
    std::string words = describe(*screen);
    if (words != m_told) {
        host.note("screen", words);
        m_told = std::move(words);
    }
}
