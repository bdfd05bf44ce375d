#pragma once

#include "simulator/conversation/ConversationHost.h"

/// The Messages app around the extension, as views in the screen's coordinates. The extension's frame is left free
/// between the two layers.
struct ConversationBackdrop {
    std::shared_ptr<UIView> behind;
    std::shared_ptr<UIView> card;  // tells of the link that is being opened; null when none is
    std::shared_ptr<UIView> above; // the home indicator; null on devices without one
};

/// What a finger can touch there, by accessibility identifier; a bubble with a link is "bubble" and its index.
inline constexpr const char* handleIdentifier = "handle";
inline constexpr const char* extensionButtonIdentifier = "extension";
inline constexpr const char* bubbleIdentifier = "bubble ";

/// As the host stands at this moment: without the extension, or around its compact or its expanded frame.
[[nodiscard]] ConversationBackdrop makeConversation(const ConversationHost& host);
