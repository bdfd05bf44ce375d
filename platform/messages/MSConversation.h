#pragma once

#include "platform/foundation/NSURL.h"
#include "platform/foundation/NSUUID.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

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

/// The conversation at the moment of a callback. Made by the host.
class MSConversation : public NSObject {
public:
    MSConversation(std::vector<NSUUID> remotes, std::shared_ptr<MSMessage> selected)
        : m_remotes(std::move(remotes)), m_selected(std::move(selected)) {}

    /// The bubble that the player selected to open the extension; null for none.
    [[nodiscard]] const std::shared_ptr<MSMessage>& selectedMessage() const { return m_selected; }
    /// In the host's order; may be empty.
    [[nodiscard]] const std::vector<NSUUID>& remoteParticipantIdentifiers() const { return m_remotes; }

private:
    std::vector<NSUUID> m_remotes;
    std::shared_ptr<MSMessage> m_selected;
};
