#include "platform/dispatch/WorkerPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <string>
#include <thread>

TEST(WorkerPool, TellsWhenEverythingHasRunAndIsDestroyed) {
    WorkerPool pool;
    auto held = std::make_shared<int>(0);
    std::atomic<int> count = 0;
    for (int i = 0; i < 100; ++i) {
        pool.submit(QOS_CLASS_DEFAULT, [&count, held] { ++count; });
    }
    pool.waitUntilIdle();
    EXPECT_EQ(count, 100);
    EXPECT_EQ(held.use_count(), 1);
}

TEST(WorkerPool, RunsBlocksAtTheSameTimeAndBeginsTheHigherClassFirst) {
    WorkerPool pool;
    const unsigned threads = std::clamp(std::thread::hardware_concurrency(), 2U, 4U);
    std::atomic<unsigned> begun = 0;
    std::atomic<unsigned> released = 0;
    for (unsigned i = 1; i <= threads; ++i) { // every thread is held; the first alone is released below
        pool.submit(QOS_CLASS_DEFAULT, [&, i] {
            ++begun;
            while (released < i) {
                std::this_thread::yield();
            }
        });
    }
    while (begun < threads) {
        std::this_thread::yield();
    }
    std::string order;
    pool.submit(QOS_CLASS_DEFAULT, [&] { released = threads; });
    pool.submit(QOS_CLASS_DEFAULT, [&] { order += 'c'; });
    pool.submit(QOS_CLASS_USER_INITIATED, [&] { order += 'a'; });
    pool.submit(QOS_CLASS_USER_INITIATED, [&] { order += 'b'; });
    released = 1;
    pool.waitUntilIdle();
    EXPECT_EQ(order, "abc");
}

TEST(WorkerPool, KeepsNoBlockWhenItEnds) {
    const auto held = std::make_shared<int>(0);
    {
        WorkerPool pool;
        for (int i = 0; i < 50; ++i) {
            pool.submit(QOS_CLASS_DEFAULT, [held] { std::this_thread::yield(); });
        }
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST(WorkerPool, LetsWhatABlockHeldSubmitMoreWhenItDies) {
    WorkerPool pool;
    std::atomic<int> ran = 0;
    std::shared_ptr<void> held(nullptr, [&](void*) { pool.submit(QOS_CLASS_DEFAULT, [&ran] { ++ran; }); });
    pool.submit(QOS_CLASS_DEFAULT, [held = std::move(held)] {});
    pool.waitUntilIdle();
    EXPECT_EQ(ran, 1);
}
