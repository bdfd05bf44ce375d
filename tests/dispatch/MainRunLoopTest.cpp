#include "platform/dispatch/MainRunLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

namespace {

/// Virtual time, and a list of what happened and when.
class MainRunLoopTest : public testing::Test {
protected:
    MainRunLoopTest() { loop.useVirtualClock(); }
    ~MainRunLoopTest() override { loop.reset(); }

    void note(const std::string& what) { log.push_back(what + "@" + std::to_string(loop.now() / 1ms)); }
    dispatch_block_t noting(const std::string& what) {
        return [this, what] { note(what); };
    }
    void after(std::chrono::nanoseconds delay, dispatch_block_t block) {
        dispatch_after(dispatch_time(DISPATCH_TIME_NOW, delay.count()), dispatch_get_main_queue(), std::move(block));
    }
    void onMain(dispatch_block_t block) { dispatch_async(dispatch_get_main_queue(), std::move(block)); }
    void inBackground(dispatch_block_t block) {
        dispatch_async(dispatch_get_global_queue(QOS_CLASS_USER_INITIATED), std::move(block));
    }

    using Log = std::vector<std::string>;
    MainRunLoop& loop = MainRunLoop::shared();
    Log log;
};

} // namespace

TEST_F(MainRunLoopTest, RunsWhatIsPostedInALaterTurnAndNotInsideTheCall) {
    onMain([this] {
        note("first");
        onMain(noting("third"));
    });
    onMain(noting("second"));
    EXPECT_EQ(log, Log{});
    EXPECT_TRUE(loop.runReady());
    EXPECT_EQ(log, (Log{"first@0", "second@0"}));
    EXPECT_TRUE(loop.runReady());
    EXPECT_EQ(log.back(), "third@0");
    EXPECT_FALSE(loop.runReady());
}

TEST_F(MainRunLoopTest, StepsThroughDueTimesInOrder) {
    after(500ms, noting("c"));
    after(100ms, [this] {
        note("a");
        after(100ms, noting("b"));
    });
    after(500ms, noting("d"));
    after(501ms, noting("late"));
    loop.advance(500ms - 1ns);
    EXPECT_EQ(log, (Log{"a@100", "b@200"}));
    loop.advance(1ns);
    EXPECT_EQ(log, (Log{"a@100", "b@200", "c@500", "d@500"}));
    EXPECT_EQ(loop.now(), 500ms);
    EXPECT_EQ(loop.nextDueTime(), 501ms);
}

TEST_F(MainRunLoopTest, CountsDelaysFromTheGivenMoment) {
    loop.advance(10ms);
    const dispatch_time_t later = dispatch_time(dispatch_time(DISPATCH_TIME_NOW, 5'000'000), 5'000'000);
    dispatch_after(later, dispatch_get_main_queue(), noting("later"));
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, -50'000'000), dispatch_get_main_queue(), noting("past"));
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, INT64_MAX), dispatch_get_main_queue(), noting("never"));
    loop.advance(1h);
    EXPECT_EQ(log, (Log{"past@10", "later@20"}));
}

TEST_F(MainRunLoopTest, HoldsBackgroundWorkBackForTheLatency) {
    loop.setBackgroundLatency(30ms);
    inBackground([this] { onMain(noting("result")); });
    after(20ms, noting("earlier"));
    after(40ms, noting("later"));
    loop.advance(1s);
    EXPECT_EQ(log, (Log{"earlier@20", "result@30", "later@40"}));
}

TEST_F(MainRunLoopTest, OrdersWhatBackgroundWorkPostsByTheWorkNotByTheFasterThread) {
    for (int round = 0; round < 20; ++round) {
        log.clear();
        std::atomic<bool> secondIsDone = false;
        inBackground([&, this] {
            while (!secondIsDone) {
                std::this_thread::yield();
            }
            onMain(noting("first"));
        });
        inBackground([&, this] {
            onMain(noting("second"));
            onMain(noting("third"));
            secondIsDone = true;
        });
        loop.runUntilIdle();
        ASSERT_EQ(log, (Log{"first@0", "second@0", "third@0"}));
    }
}

TEST_F(MainRunLoopTest, ShowsEveryTurnToItsObserver) {
    loop.setTurnObserver(noting("layout"));
    onMain([this] { after(100ms, noting("timer")); });
    loop.advance(200ms);
    EXPECT_EQ(log, (Log{"layout@0", "timer@100", "layout@100"}));
}

TEST_F(MainRunLoopTest, WaitsForBackgroundWorkAndDestroysWhatItPostsOnTheMainThread) {
    const auto mainThread = std::this_thread::get_id();
    std::shared_ptr<void> screen(nullptr, [&](void*) {
        note("gone");
        EXPECT_EQ(std::this_thread::get_id(), mainThread);
    });
    inBackground([&, weak = std::weak_ptr<void>(screen)]() mutable {
        EXPECT_NE(std::this_thread::get_id(), mainThread);
        std::shared_ptr<void> strong = weak.lock();
        screen.reset(); // the last reference is the block's now
        onMain([strong = std::move(strong), this] { note("applied"); });
        onMain(noting("next"));
        note("work");
    });
    EXPECT_TRUE(loop.runReady());
    EXPECT_EQ(log, (Log{"work@0"})) << "what it posts comes in a later turn";
    EXPECT_TRUE(loop.runReady());
    EXPECT_EQ(log, (Log{"work@0", "applied@0", "gone@0", "next@0"}));
}

TEST_F(MainRunLoopTest, ResetDropsBlocksEvenThoseThatPostMoreWhenTheyDie) {
    std::shared_ptr<void> postsAtItsEnd(nullptr, [this](void*) { onMain(noting("late")); });
    onMain([held = postsAtItsEnd] {});
    inBackground([held = std::move(postsAtItsEnd)] {});
    after(1s, noting("timer"));
    loop.reset();
    EXPECT_EQ(loop.nextDueTime(), std::nullopt);
    loop.advance(2s);
    EXPECT_EQ(log, Log{});
}

TEST_F(MainRunLoopTest, TakesPostsFromManyThreadsInEachThreadsOrder) {
    constexpr int perThread = 250;
    std::vector<int> seen(8);
    std::atomic<std::size_t> posting = seen.size();
    std::vector<std::thread> threads;
    for (int& next : seen) {
        threads.emplace_back([&] {
            for (int i = 0; i < perThread; ++i) {
                onMain([&next, i] { EXPECT_EQ(next++, i); });
            }
            --posting;
        });
    }
    while (posting > 0) {
        loop.runReady();
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    loop.runUntilIdle();
    EXPECT_EQ(seen, std::vector<int>(8, perThread));
}

TEST_F(MainRunLoopTest, RealTimeStartsBackgroundWorkWhenItIsDueAndWaitsForItsResult) {
    loop.useRealClock();
    bool arrived = false;
    std::atomic<int> wakes = 0;
    loop.setWakeHandler([&] { ++wakes; });
    const auto start = loop.now();
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, 2'000'000), dispatch_get_global_queue(QOS_CLASS_USER_INITIATED),
                   [&, this] { onMain([&] { arrived = true; }); });
    EXPECT_TRUE(loop.nextDueTime());
    while (!arrived) {
        loop.advance(1ms);
    }
    EXPECT_GE(wakes, 1);
    EXPECT_GE(loop.now() - start, 2ms);
}

TEST_F(MainRunLoopTest, RunningItFromInsideABlockStopsTheProgram) {
    onMain([this] { loop.runReady(); });
    EXPECT_DEATH(loop.runReady(), "a block on the main queue ran the main queue");
}
