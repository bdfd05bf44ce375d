#pragma once

#include "platform/foundation/NSUUID.h"
#include "platform/messages/MSMessage.h"

#include <memory>
#include <vector>

/// The conversation at the moment of a callback. Made by the host.
class MSConversation : public NSObject {
public:
    MSConversation(const NSUUID& local, std::vector<NSUUID> remotes, std::shared_ptr<MSMessage> selected)
        : m_local(local), m_remotes(std::move(remotes)), m_selected(std::move(selected)) {}

    /// The bubble that the player selected to open the extension; null for none.
    [[nodiscard]] const std::shared_ptr<MSMessage>& selectedMessage() const { return m_selected; }
    [[nodiscard]] const NSUUID& localParticipantIdentifier() const { return m_local; }
    /// In the host's order; may be empty.
    [[nodiscard]] const std::vector<NSUUID>& remoteParticipantIdentifiers() const { return m_remotes; }

private:
    NSUUID m_local;
    std::vector<NSUUID> m_remotes;
    std::shared_ptr<MSMessage> m_selected;
};
