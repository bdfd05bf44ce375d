#pragma once

#include <string>

class CategoriesVC;
class ConversationHost;

/// The category screen that the extension shows; null when it shows none, or one whose view is not loaded yet.
[[nodiscard]] const CategoriesVC* shownCategoryScreen(const ConversationHost& host);

/// Tells in words what the category screen shows: the chosen group, how much it offers and which rows are in view.
/// Remembers what it told, so that only changes are told.
class ScreenNarrator {
public:
    /// Notes a change in the host's log, once nothing is due that may change the screen again at once.
    void tell(ConversationHost& host);

private:
    std::string m_told;
};
