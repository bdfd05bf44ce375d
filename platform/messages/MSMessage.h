#pragma once

#include "platform/foundation/NSURL.h"
#include "platform/foundation/NSUUID.h"
#include "platform/runtime/NSObject.h"

#include <optional>

/// One message bubble of the conversation, as the extension sees it: read-only.
class MSMessage : public NSObject {
public:
    MSMessage(const NSUUID& sender, std::optional<NSURL> url) : m_sender(sender), m_url(std::move(url)) {}

    /// Absent when the bubble carries no link.
    [[nodiscard]] const std::optional<NSURL>& URL() const { return m_url; }
    [[nodiscard]] const NSUUID& senderParticipantIdentifier() const { return m_sender; }

private:
    NSUUID m_sender;
    std::optional<NSURL> m_url;
};
