#include "platform/dispatch/Dispatch.h"

#include "platform/dispatch/MainRunLoop.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

struct DispatchQueue {
    std::optional<qos_class_t> qualityOfService; // none: the main queue
};

namespace {

using Duration = MainRunLoop::Duration;

/// Far enough from the end of the clock that a latency may be added.
constexpr auto latest = static_cast<dispatch_time_t>(std::numeric_limits<std::int64_t>::max() / 2);

void post(dispatch_queue_t queue, Duration due, dispatch_block_t block) {
    if (queue->qualityOfService) {
        MainRunLoop::shared().postToBackground(due, *queue->qualityOfService, std::move(block));
    } else {
        MainRunLoop::shared().postToMain(due, std::move(block));
    }
}

} // namespace

dispatch_queue_t dispatch_get_main_queue() {
    static constexpr DispatchQueue queue{std::nullopt};
    return &queue;
}

dispatch_queue_t dispatch_get_global_queue(qos_class_t qualityOfService) {
    static constexpr DispatchQueue userInteractive{QOS_CLASS_USER_INTERACTIVE};
    static constexpr DispatchQueue userInitiated{QOS_CLASS_USER_INITIATED};
    return qualityOfService == QOS_CLASS_USER_INTERACTIVE ? &userInteractive : &userInitiated;
}

void dispatch_async(dispatch_queue_t queue, dispatch_block_t block) {
    post(queue, MainRunLoop::shared().now(), std::move(block));
}

dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t nanoseconds) {
    const dispatch_time_t start =
        when == DISPATCH_TIME_NOW ? static_cast<dispatch_time_t>(MainRunLoop::shared().now().count()) : when;
    return start + static_cast<dispatch_time_t>(std::max<std::int64_t>(nanoseconds, 0));
}

void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block) {
    const Duration due{static_cast<std::int64_t>(std::min(when, latest))};
    post(queue, std::max(MainRunLoop::shared().now(), due), std::move(block));
}
