#pragma once

#include <cstdint>
#include <functional>

/// The platform's C interface to queues. Every function may be called from any thread. A block is moved to the thread
/// that runs it and destroyed there right after it has run. MainRunLoop is the other side: it runs the main queue.

using dispatch_block_t = std::function<void()>;

/// A moment on the run loop's clock, in nanoseconds.
using dispatch_time_t = std::uint64_t;
inline constexpr dispatch_time_t DISPATCH_TIME_NOW = 0;
inline constexpr std::uint64_t NSEC_PER_SEC = 1'000'000'000;

enum qos_class_t : unsigned {
    QOS_CLASS_USER_INTERACTIVE = 0x21,
    QOS_CLASS_USER_INITIATED = 0x19,
};

struct DispatchQueue;
using dispatch_queue_t = const DispatchQueue*;

/// Runs blocks one at a time on the main thread, in order.
[[nodiscard]] dispatch_queue_t dispatch_get_main_queue();
/// Runs blocks at the same time on background threads; a higher class goes first.
[[nodiscard]] dispatch_queue_t dispatch_get_global_queue(qos_class_t qualityOfService);

/// Never runs the block inside the call.
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
/// The moment `nanoseconds` after `when`; fewer than none count as none.
[[nodiscard]] dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t nanoseconds);
/// Puts the block on the queue when the clock reaches `when`.
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block);
