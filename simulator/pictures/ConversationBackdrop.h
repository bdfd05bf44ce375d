#pragma once

#include "platform/foundation/NSURL.h"
#include "platform/messages/MSMessagesAppViewController.h"
#include "simulator/conversation/Device.h"

#include <optional>

class UIView;

/// The Messages app around the extension, as views in the screen's coordinates. The extension's frame is left free
/// between the two layers.
struct ConversationBackdrop {
    std::shared_ptr<UIView> behind;
    std::shared_ptr<UIView> card;  // tells of the link that is being opened; null when none is
    std::shared_ptr<UIView> above; // the home indicator; null on devices without one
};

[[nodiscard]] ConversationBackdrop makeConversation(const Device& device, MSMessagesAppPresentationStyle style,
                                                    const std::optional<NSURL>& openedLink);
