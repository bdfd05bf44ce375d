#pragma once

#include "platform/dispatch/Dispatch.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <tuple>

/// Runs the main queue. The host owns the thread and calls in here; blocks come from any thread through Dispatch.h.
/// The clock is virtual at first: time stands still until advance(), and work on the global queue is released by the
/// loop, which waits for it, so that every run goes the same way. With the real clock background work starts at once.
class MainRunLoop {
public:
    using Duration = std::chrono::nanoseconds;

    [[nodiscard]] static MainRunLoop& shared();
    MainRunLoop();
    ~MainRunLoop();
    MainRunLoop(const MainRunLoop&) = delete;
    MainRunLoop& operator=(const MainRunLoop&) = delete;

    /// Both begin with reset().
    void useVirtualClock() { useClock(Clock::virtualTime); }
    void useRealClock() { useClock(Clock::realTime); }
    /// Since the clock was chosen or reset. Any thread.
    [[nodiscard]] Duration now() const;

    /// How long after dispatch background work begins. Zero: in the loop's next turn, or at once on the real clock.
    void setBackgroundLatency(Duration latency);
    /// Called after every turn; the host lays out its window there.
    void setTurnObserver(std::function<void()> observer);
    /// Called on the posting thread after every new block, so that a window can leave its wait for events.
    void setWakeHandler(std::function<void()> handler);

    /// One turn: the background work that is due (virtual clock: waits for its end), then the main queue's blocks that
    /// were due when the turn began, by due time, then order of submission. False when there was nothing.
    bool runReady();
    /// Turns until nothing is due now.
    void runUntilIdle();
    /// Virtual clock: steps from due time to due time until `duration` has passed. Real clock: runs and waits that
    /// long.
    void advance(Duration duration);
    /// When the next block falls due, which may be past; none when all queues are empty.
    [[nodiscard]] std::optional<Duration> nextDueTime() const;

    /// Waits for background work that has begun, drops all blocks, sets time and latency to zero and removes observer
    /// and wake handler. A host calls it before it ends, while the objects that blocks hold can still be destroyed.
    void reset();

    /// For Dispatch.h.
    void postToMain(Duration due, dispatch_block_t block);
    void postToBackground(Duration due, qos_class_t qualityOfService, dispatch_block_t block);

private:
    enum class Clock { virtualTime, realTime };
    /// Due time, turn order, submission. What background work posts takes the turn order of that work, so that the
    /// order on the main queue does not depend on which thread was faster.
    using Key = std::tuple<Duration, std::uint64_t, std::uint64_t>;
    struct BackgroundBlock {
        qos_class_t qualityOfService;
        dispatch_block_t block;
    };
    using MainBlocks = std::map<Key, dispatch_block_t>;
    using BackgroundBlocks = std::map<Key, BackgroundBlock>;

    void useClock(Clock clock);
    bool isVirtual() const;
    std::uint64_t newOrder();
    Duration nowLocked() const;
    std::optional<Duration> nextDueTimeLocked() const;
    Key nextKeyLocked(Duration due);
    void releaseBackground(BackgroundBlocks blocks);
    /// `order` is the turn order that its posts take; 0: each its own.
    void startWork(BackgroundBlock work, std::uint64_t order);
    void waitForWork();
    void advanceVirtualTime(Duration end);
    void waitInRealTime(Duration end);
    void wake();

    mutable std::mutex m_mutex; // guards all below, except what only the main thread uses
    std::condition_variable m_posted;
    std::condition_variable m_workEnded;
    Clock m_clock = Clock::virtualTime;
    Duration m_virtualNow{0};
    std::chrono::steady_clock::time_point m_realStart;
    Duration m_latency{0};
    std::uint64_t m_submissions = 0;
    MainBlocks m_main;
    BackgroundBlocks m_background;
    std::size_t m_unfinishedWork = 0; // background blocks that the worker pool has
    std::function<void()> m_wakeHandler;

    std::function<void()> m_turnObserver; // main thread
    bool m_running = false;               // main thread
};
