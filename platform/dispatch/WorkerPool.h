#pragma once

#include "platform/dispatch/Dispatch.h"

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

/// The process's background threads: they run the global queue's blocks and decode pictures. Started at the first
/// block; the destructor drops blocks that have not begun, waits for those that run and ends the threads. Any thread
/// may submit.
class WorkerPool {
public:
    [[nodiscard]] static WorkerPool& shared();
    WorkerPool() = default;
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    /// Blocks of a higher class begin first, those of one class in the order of submission. A block is destroyed right
    /// after it has run, on its thread.
    void submit(qos_class_t qualityOfService, dispatch_block_t block);

    /// Waits for all blocks and ends the threads, before the process is copied: a copy has none of them. The next block
    /// starts them again. The main thread only, while no other submits.
    void finish();

private:
    using Key = std::pair<unsigned, std::uint64_t>; // the highest class first, then order of submission

    enum class Stop { no, whenIdle, atOnce };

    void startThreadsLocked();
    void endThreads(Stop stop);
    void work();

    std::mutex m_mutex;
    std::condition_variable m_submitted;
    std::map<Key, dispatch_block_t> m_blocks;
    std::uint64_t m_submissions = 0;
    Stop m_stop = Stop::no;
    std::vector<std::thread> m_threads;
};
