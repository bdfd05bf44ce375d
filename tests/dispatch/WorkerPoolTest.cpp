#include "platform/dispatch/WorkerPool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <string>
#include <thread>

namespace {

template <class Condition>
void waitUntil(Condition condition) {
    while (!condition()) {
        std::this_thread::yield();
    }
}

} // namespace

TEST(WorkerPool, RunsBlocksAtTheSameTimeAndBeginsTheHigherClassFirst) {
    const unsigned threads = std::clamp(std::thread::hardware_concurrency(), 2U, 4U);
    std::atomic<unsigned> begun = 0;
    std::atomic<unsigned> released = 0;
    std::atomic<bool> ended = false;
    std::string order;
    WorkerPool pool;
    for (unsigned i = 1; i <= threads; ++i) { // every thread is held; the first alone is released below
        pool.submit(QOS_CLASS_USER_INITIATED, [&, i] {
            ++begun;
            waitUntil([&] { return released >= i; });
        });
    }
    waitUntil([&] { return begun == threads; });
    pool.submit(QOS_CLASS_USER_INITIATED, [&] { released = threads; });
    pool.submit(QOS_CLASS_USER_INITIATED, [&] {
        order += 'c';
        ended = true;
    });
    pool.submit(QOS_CLASS_USER_INTERACTIVE, [&] { order += 'a'; });
    pool.submit(QOS_CLASS_USER_INTERACTIVE, [&] { order += 'b'; });
    released = 1;
    waitUntil([&] { return ended.load(); });
    EXPECT_EQ(order, "abc");
}

TEST(WorkerPool, KeepsNoBlockWhenItEnds) {
    const auto held = std::make_shared<int>(0);
    {
        WorkerPool pool;
        for (int i = 0; i < 50; ++i) {
            pool.submit(QOS_CLASS_USER_INITIATED, [held] { std::this_thread::yield(); });
        }
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST(WorkerPool, LetsWhatABlockHeldSubmitMoreWhenItDies) {
    WorkerPool pool;
    std::atomic<int> ran = 0;
    std::shared_ptr<void> held(nullptr, [&](void*) { pool.submit(QOS_CLASS_USER_INITIATED, [&ran] { ++ran; }); });
    pool.submit(QOS_CLASS_USER_INITIATED, [held = std::move(held)] {});
    waitUntil([&] { return ran == 1; });
}
