#include "platform/dispatch/WorkerPool.h"

#include <algorithm>

WorkerPool& WorkerPool::shared() {
    static WorkerPool pool;
    return pool;
}

WorkerPool::~WorkerPool() {
    endThreads(Stop::atOnce);
}

void WorkerPool::finish() {
    endThreads(Stop::whenIdle);
    m_threads.clear();
    m_stop = Stop::no;
}

void WorkerPool::endThreads(Stop stop) {
    std::map<Key, dispatch_block_t> dropped; // destroyed after the threads, outside the lock
    {
        const std::lock_guard lock(m_mutex);
        m_stop = stop;
        if (stop == Stop::atOnce) {
            dropped.swap(m_blocks);
        }
    }
    m_submitted.notify_all();
    for (std::thread& thread : m_threads) {
        thread.join();
    }
}

void WorkerPool::submit(qos_class_t qualityOfService, dispatch_block_t block) {
    {
        const std::lock_guard lock(m_mutex);
        startThreadsLocked();
        m_blocks.emplace(Key{~static_cast<unsigned>(qualityOfService), ++m_submissions}, std::move(block));
    }
    m_submitted.notify_one();
}

void WorkerPool::startThreadsLocked() {
    if (!m_threads.empty()) {
        return;
    }
    const unsigned count = std::clamp(std::thread::hardware_concurrency(), 2U, 4U);
    for (unsigned i = 0; i < count; ++i) {
        m_threads.emplace_back([this] { work(); });
    }
}

void WorkerPool::work() {
    std::unique_lock lock(m_mutex);
    while (true) {
        m_submitted.wait(lock, [this] { return m_stop != Stop::no || !m_blocks.empty(); });
        if (m_stop == Stop::atOnce || m_blocks.empty()) {
            return;
        }
        dispatch_block_t block = std::move(m_blocks.begin()->second);
        m_blocks.erase(m_blocks.begin());
        lock.unlock();
        block();
        block = nullptr; // what it held may submit more when it dies: not under the lock
        lock.lock();
    }
}
