#pragma once

#include "platform/foundation/Finding.h"
#include "simulator/conversation/ConversationHost.h"
#include "simulator/conversation/ElementSearch.h"
#include "simulator/conversation/ScreenNarrator.h"
#include "simulator/flows/Flow.h"
#include "simulator/pictures/PictureComparison.h"

/// What came of playing one flow.
struct FlowResult {
    std::string file;
    std::string name;
    std::string device;
    std::vector<Event> events;
    std::vector<std::string> debugLines;
    std::vector<ConversationHost::OpenedLink> links;
    std::vector<ConversationHost::StyleRequest> styleRequests;
    Findings failures;                // empty: the flow passed
    std::vector<std::string> goldens; // the golden files that it asked for
    bool wasPlayed = true;            // false: it could not be read
};

/// Plays one flow from a fresh conversation to its end, in virtual time; a failed step does not stop it. Commands use
/// it to reach the host and to wait for what they are about. The main bundle is set up by the caller.
class FlowPlayer {
public:
    FlowPlayer(const Flow& flow, Device device, ConversationHost::Listener listener = {},
               PictureSettings pictures = {});
    ~FlowPlayer();
    FlowPlayer(const FlowPlayer&) = delete;
    FlowPlayer& operator=(const FlowPlayer&) = delete;

    [[nodiscard]] FlowResult play();
    /// What has come of it until now.
    [[nodiscard]] FlowResult result() const;
    /// A failure of the command that is being played.
    [[nodiscard]] Finding failureNow(const std::string& what) const;

    // For the commands.
    [[nodiscard]] ConversationHost& host() const { return *m_host; }
    [[nodiscard]] const PictureSettings& pictures() const { return m_pictures; }
    /// START-DEVICE.ENDING: what is golden for one device is not for another. Remembers that it was asked for.
    [[nodiscard]] std::string goldenFile(const std::string& start, const std::string& ending);
    /// An element of the screen as it is now.
    [[nodiscard]] std::optional<ScreenElement> find(const Selector& selector) const;
    /// How long commands wait for what they are about, in virtual time.
    static constexpr std::chrono::milliseconds patience{7000};
    /// Lets virtual time pass until the condition holds, or so much of it has passed.
    bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds time = patience);
    [[nodiscard]] std::optional<ScreenElement> waitForElement(const Selector& selector);
    /// Why an element was not found, with the nearest that is there.
    [[nodiscard]] Failure missing(const Selector& selector);
    /// Why an element that is there should not be.
    [[nodiscard]] static Failure unwanted(const Selector& selector);
    /// Why a command that needs the extension cannot do anything.
    [[nodiscard]] static Failure notOpened();
    /// The first link that no one asked for yet.
    [[nodiscard]] std::optional<NSURL> nextLink();
    /// The debug lines since the last call.
    [[nodiscard]] std::vector<std::string> takeDebugLines();

    /// Plays commands that stand inside another; whether all of them passed, optional ones aside.
    bool playSteps(const FlowSteps& steps);

private:
    bool playStep(const FlowStep& step);
    void fail(const Failure& failure);
    /// Leaves a picture and the tree of the moment; where, for messages.
    [[nodiscard]] std::string showFailure() const;

    const Flow& m_flow;
    PictureSettings m_pictures;
    std::shared_ptr<ConversationHost> m_host;
    ScreenNarrator m_narrator;
    std::vector<std::string> m_debugLines;
    Findings m_failures;
    std::vector<std::string> m_goldens;
    const FlowStep* m_step = nullptr; // that is being played
    std::size_t m_stepsPlayed = 0;
    std::size_t m_linksAsked = 0;
    std::size_t m_debugLinesTaken = 0;
};
