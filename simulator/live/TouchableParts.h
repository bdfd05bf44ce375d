#pragma once

#include "simulator/pictures/ConversationBackdrop.h"

#include <string>
#include <vector>

/// Something on the phone that a finger can be put on, for the keyboard and for screen readers.
struct TouchablePart {
    const char* role; // "button", "row", "field", "bubble" or "handle"
    std::string label;
    std::string identifier;
    CGRect frame; // what can be seen of it, in points of the screen; a touch in its middle goes to it
};

/// All that is there now, from top to bottom as the views are nested.
[[nodiscard]] std::vector<TouchablePart> touchableParts(const ConversationHost& host,
                                                        const ConversationBackdrop& conversation);

/// The identifier of what the conversation around the extension has there; empty when nothing that can be touched.
[[nodiscard]] std::string surroundingPartAt(const ConversationBackdrop& conversation, CGPoint place);
