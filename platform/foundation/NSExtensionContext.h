#pragma once

#include "platform/foundation/NSURL.h"

#include <functional>

/// What the host offers a running extension. The host implements it and owns it by std::shared_ptr; view controllers
/// reach it through their nearest ancestor that has one. Main thread only.
class NSExtensionContext {
public:
    virtual ~NSExtensionContext() = default;

    /// Asks the host to open `url`. `completionHandler` may be empty; it is told whether the host opened it.
    /// Selector openURL:completionHandler:
    virtual void openURLCompletionHandler(const NSURL& url, std::function<void(bool)> completionHandler) = 0;
};
