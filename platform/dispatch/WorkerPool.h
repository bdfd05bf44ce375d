#pragma once

#include "platform/dispatch/Dispatch.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

/// The threads behind the global queue. They are started at the first block and joined by the destructor, which drops
/// blocks that have not begun. Any thread may submit.
class WorkerPool {
public:
    WorkerPool() = default;
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    void submit(qos_class_t qualityOfService, dispatch_block_t block);
    /// Returns when no block is queued or running. Not from a worker.
    void waitUntilIdle();

private:
    using Key = std::pair<unsigned, std::uint64_t>; // the highest class first, then order of submission

    void startThreadsLocked();
    void work();

    std::mutex m_mutex;
    std::condition_variable m_submitted;
    std::condition_variable m_idle;
    std::map<Key, dispatch_block_t> m_blocks;
    std::uint64_t m_submissions = 0;
    std::size_t m_unfinished = 0;
    bool m_stopping = false;
    std::vector<std::thread> m_threads;
};
