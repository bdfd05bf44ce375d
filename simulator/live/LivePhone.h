#pragma once

#include "simulator/check/BundleCheck.h"
#include "simulator/conversation/BundleSetup.h"
#include "simulator/conversation/ConversationHost.h"
#include "simulator/conversation/Finger.h"
#include "simulator/live/FlowRecorder.h"
#include "simulator/live/LiveScreen.h"

/// What is shown, as the command line says.
struct LiveShow {
    std::string title;
    std::string scene; // a developer scene in the extension's stead; empty: none
    Device device;
    std::vector<std::string> participants;
    std::vector<ResourceOverride> overrides;
    std::function<Result<BundleFindings>()> open; // makes it the main bundle and checks it
};

/// A phone for hands: the conversation with the extension, one finger, and the settings that a person can change.
/// Places are points of its screen. Made by the command, which lets as much time pass on it as passes in the room; used
/// on the main thread. Its time goes as that of a flow, in whole milliseconds and none while something is done, so that
/// what is recorded meets the same when it is played.
class LivePhone {
public:
    explicit LivePhone(LiveShow show);
    ~LivePhone();
    LivePhone(const LivePhone&) = delete;
    LivePhone& operator=(const LivePhone&) = delete;

    [[nodiscard]] const LiveShow& show() const { return m_show; }
    [[nodiscard]] ConversationHost& host() const { return *m_host; }
    [[nodiscard]] LiveScreen& screen() { return *m_screen; }
    [[nodiscard]] const Findings& findings() const { return m_findings; }
    [[nodiscard]] int loadingTakes() const { return m_loadingTakes; }
    /// What was done since the last restart, as a flow.
    [[nodiscard]] const FlowRecorder& recorder() const { return m_recorder; }
    /// Grows with every beginning; hosts and screens of an earlier one are gone.
    [[nodiscard]] int run() const { return m_run; }

    /// Everything from the beginning.
    void restart();
    /// The files behind it have changed. With errors in them, the screen stays as it is until they are mended;
    /// otherwise it begins again, and goes on with the same group, presentation and place in the list.
    void reload();
    /// Lets time pass, from one thing that falls due to the next.
    void passTime(std::chrono::milliseconds time);
    /// What follows at once from what was done.
    void settle();

    /// Another phone of the same owner: text size and direction stay.
    void setDevice(Device device);
    void setAppearance(UIUserInterfaceStyle appearance);
    /// None: the extension is closed.
    void setPresentation(std::optional<MSMessagesAppPresentationStyle> presentation);
    /// Taps the list of groups and the group.
    void setGroup(const std::string& group);
    void setLoadingTakes(int milliseconds);
    void setParticipants(std::vector<std::string> participants);
    void arrive(ArrivedMessage message);

    void touch(UITouchPhase phase, CGPoint place);
    void tap(CGPoint place);
    void wheel(CGPoint place, CGFloat down);
    void type(const std::string& text);

private:
    /// What a reload brings back.
    struct Kept {
        std::optional<std::string> group;
        std::optional<CGPoint> offset;
        bool isCompact = false;
    };

    void beginAnew();
    void begin(const std::vector<ArrivedMessage>& arrived);
    [[nodiscard]] Kept whatToKeep() const;
    void bringBack();
    void launch();
    void activate(const std::shared_ptr<MSMessage>& bubble);
    [[nodiscard]] std::string loadingTakesText() const;
    void dropWhatIsDue();
    void openBundle();
    void end();
    [[nodiscard]] bool canTouchExtension(CGPoint place) const;
    [[nodiscard]] CGPoint inWindow(CGPoint place) const;
    void beginTouch(CGPoint place);
    void continueTouch(UITouchPhase phase, CGPoint place);
    void report(UITouchPhase phase, CGPoint place);
    void finishGesture(CGPoint start, CGPoint end);
    void tapSurroundings(const std::string& identifier);
    void openFrom(std::size_t arrived);
    bool tapElement(const Selector& selector);

    LiveShow m_show;
    UIUserInterfaceStyle m_appearance = UIUserInterfaceStyle::light;
    int m_loadingTakes = 0; // milliseconds
    Findings m_findings;
    bool m_canLaunch = false;
    int m_run = 0;
    std::shared_ptr<ConversationHost> m_host;
    std::optional<LiveScreen> m_screen;
    std::optional<Finger> m_finger;        // that is down on the extension
    CGPoint m_fingerPlace;                 // in its window, as seen last
    std::optional<CGPoint> m_gestureStart; // of a finger beside it
    std::optional<Kept> m_kept;
    FlowRecorder m_recorder;
    std::size_t m_linksRecorded = 0; // of this host
};
