#pragma once

#include <string>

class ConversationHost;

/// Tells in words what the category screen shows: the chosen group, how much it offers and which rows are in view.
/// Remembers what it told, so that only changes are told.
class ScreenStory {
public:
    /// Notes a change in the host's log.
    void tell(ConversationHost& host);

private:
    std::string m_told;
};
