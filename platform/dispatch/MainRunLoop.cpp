#include "platform/dispatch/MainRunLoop.h"

#include "platform/dispatch/WorkerPool.h"
#include "platform/foundation/FatalError.h"

#include <algorithm>
#include <utility>

namespace {

using Duration = MainRunLoop::Duration;

/// The turn order of the released background work that this thread is running; 0 everywhere else.
thread_local std::uint64_t orderOfCurrentWork = 0;

/// Takes out everything that is due at `now`.
template <class Blocks>
Blocks takeDue(Blocks& blocks, Duration now) {
    Blocks due;
    while (!blocks.empty() && std::get<0>(blocks.begin()->first) <= now) {
        due.insert(due.end(), blocks.extract(blocks.begin()));
    }
    return due;
}

} // namespace

MainRunLoop& MainRunLoop::shared() {
    static MainRunLoop loop;
    return loop;
}

MainRunLoop::MainRunLoop() {
    (void)WorkerPool::shared(); // made first and so destroyed last: the loop waits for its workers when it ends
}

MainRunLoop::~MainRunLoop() {
    reset();
}

void MainRunLoop::useClock(Clock clock) {
    reset();
    const std::lock_guard lock(m_mutex);
    m_clock = clock;
}

Duration MainRunLoop::now() const {
    const std::lock_guard lock(m_mutex);
    return nowLocked();
}

Duration MainRunLoop::nowLocked() const {
    return m_clock == Clock::virtualTime ? m_virtualNow : std::chrono::steady_clock::now() - m_realStart;
}

void MainRunLoop::setBackgroundLatency(Duration latency) {
    const std::lock_guard lock(m_mutex);
    m_latency = latency;
}

void MainRunLoop::setTurnObserver(std::function<void()> observer) {
    m_turnObserver = std::move(observer);
}

void MainRunLoop::setWakeHandler(std::function<void()> handler) {
    const std::lock_guard lock(m_mutex);
    m_wakeHandler = std::move(handler);
}

bool MainRunLoop::runReady() {
    if (m_running) {
        fatalError("a block on the main queue ran the main queue");
    }
    MainBlocks blocks;
    BackgroundBlocks background;
    {
        const std::lock_guard lock(m_mutex);
        blocks = takeDue(m_main, nowLocked());
        background = takeDue(m_background, nowLocked());
    }
    if (blocks.empty() && background.empty()) {
        return false;
    }
    m_running = true;
    releaseBackground(std::move(background));
    while (!blocks.empty()) {
        blocks.begin()->second();
        blocks.erase(blocks.begin());
    }
    m_running = false;
    if (m_turnObserver) {
        m_turnObserver();
    }
    return true;
}

void MainRunLoop::runUntilIdle() {
    while (runReady()) {
    }
}

void MainRunLoop::releaseBackground(BackgroundBlocks blocks) {
    for (auto& [key, work] : blocks) {
        startWork(std::move(work), newOrder());
    }
    if (!blocks.empty() && isVirtual()) {
        waitForWork();
    }
}

void MainRunLoop::startWork(BackgroundBlock work, std::uint64_t order) {
    {
        const std::lock_guard lock(m_mutex);
        ++m_unfinishedWork;
    }
    WorkerPool::shared().submit(work.qualityOfService, [this, order, block = std::move(work.block)]() mutable {
        orderOfCurrentWork = order;
        block();
        block = nullptr; // what it held dies here, before anyone is told that it has ended
        orderOfCurrentWork = 0;
        const std::lock_guard lock(m_mutex);
        --m_unfinishedWork;
        m_workEnded.notify_all();
    });
}

void MainRunLoop::waitForWork() {
    std::unique_lock lock(m_mutex);
    m_workEnded.wait(lock, [this] { return m_unfinishedWork == 0; });
}

std::uint64_t MainRunLoop::newOrder() {
    const std::lock_guard lock(m_mutex);
    return ++m_submissions;
}

bool MainRunLoop::isVirtual() const {
    const std::lock_guard lock(m_mutex);
    return m_clock == Clock::virtualTime;
}

void MainRunLoop::advance(Duration duration) {
    const Duration end = now() + duration;
    if (isVirtual()) {
        advanceVirtualTime(end);
    } else {
        waitInRealTime(end);
    }
}

void MainRunLoop::advanceVirtualTime(Duration end) {
    while (true) {
        runUntilIdle();
        const std::lock_guard lock(m_mutex);
        const std::optional<Duration> next = nextDueTimeLocked();
        if (!next || *next > end) {
            m_virtualNow = end;
            return;
        }
        m_virtualNow = *next;
    }
}

void MainRunLoop::waitInRealTime(Duration end) {
    while (true) {
        runUntilIdle();
        std::unique_lock lock(m_mutex);
        if (nowLocked() >= end) {
            return;
        }
        const std::optional<Duration> next = nextDueTimeLocked();
        const Duration until = next ? std::min(*next, end) : end;
        m_posted.wait_until(lock, m_realStart + until, [&] { return nextDueTimeLocked() != next; });
    }
}

std::optional<Duration> MainRunLoop::nextDueTime() const {
    const std::lock_guard lock(m_mutex);
    return nextDueTimeLocked();
}

std::optional<Duration> MainRunLoop::nextDueTimeLocked() const {
    std::optional<Duration> next;
    if (!m_main.empty()) {
        next = std::get<0>(m_main.begin()->first);
    }
    if (!m_background.empty()) {
        const Duration due = std::get<0>(m_background.begin()->first);
        next = next ? std::min(*next, due) : due;
    }
    return next;
}

void MainRunLoop::reset() {
    m_turnObserver = nullptr;
    bool dropped = true;
    while (dropped) { // what dies with a block may post another
        waitForWork();
        MainBlocks blocks;
        BackgroundBlocks background;
        const std::lock_guard lock(m_mutex);
        blocks.swap(m_main);
        background.swap(m_background);
        dropped = !blocks.empty() || !background.empty();
    }
    const std::lock_guard lock(m_mutex);
    m_wakeHandler = nullptr;
    m_virtualNow = Duration{0};
    m_realStart = std::chrono::steady_clock::now();
    m_latency = Duration{0};
}

MainRunLoop::Key MainRunLoop::nextKeyLocked(Duration due) {
    const std::uint64_t submission = ++m_submissions;
    return {due, orderOfCurrentWork != 0 ? orderOfCurrentWork : submission, submission};
}

void MainRunLoop::postToMain(Duration due, dispatch_block_t block) {
    {
        const std::lock_guard lock(m_mutex);
        m_main.emplace(nextKeyLocked(due), std::move(block));
    }
    wake();
}

void MainRunLoop::postToBackground(Duration due, qos_class_t qualityOfService, dispatch_block_t block) {
    BackgroundBlock work{qualityOfService, std::move(block)};
    std::unique_lock lock(m_mutex);
    const Duration begin = due + m_latency;
    if (m_clock == Clock::realTime && begin <= nowLocked()) {
        lock.unlock();
        startWork(std::move(work), 0);
        return;
    }
    m_background.emplace(nextKeyLocked(begin), std::move(work));
    lock.unlock();
    wake();
}

void MainRunLoop::wake() {
    m_posted.notify_all();
    std::function<void()> handler;
    {
        const std::lock_guard lock(m_mutex);
        handler = m_wakeHandler;
    }
    if (handler) {
        handler();
    }
}
