#include "simulator/conversation/ScreenStory.h"

#include "game/CategoriesVC.h"
#include "simulator/conversation/ConversationHost.h"

namespace {

std::string rowsInView(const CategoriesVC& screen) {
    std::string rows;
    for (const NSIndexPath indexPath : screen.tableView->indexPathsForVisibleRows()) {
        const ModeSection& section = screen.sections().at(static_cast<std::size_t>(indexPath.section));
        rows +=
            (rows.empty() ? "; in view: " : " · ") + section.items.at(static_cast<std::size_t>(indexPath.row)).title;
    }
    return rows;
}

std::string story(const CategoriesVC& screen) {
    std::size_t modes = 0;
    for (const ModeSection& section : screen.sections()) {
        modes += section.items.size();
    }
    std::string words = "the screen shows " + rawValue(screen.currentOption()) + ", " + std::to_string(modes) +
                        " modes in " + std::to_string(screen.sections().size()) + " sections";
    if (!screen.viewDropDown->isHidden()) {
        words += ", the list of groups is open";
    }
    return words + rowsInView(screen);
}

} // namespace

void ScreenStory::tell(ConversationHost& host) {
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
