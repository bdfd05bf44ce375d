#pragma once

#include "platform/uikit/controllers/UINib.h"
#include "platform/uikit/controllers/UIStoryboard.h"

/// Makes nibs and storyboards for UINib and UIStoryboard. One is installed per process before the first use.
class InterfaceProvider {
public:
    virtual ~InterfaceProvider() = default;

    [[nodiscard]] virtual std::shared_ptr<UINib> nib(const std::string& name, const NSBundle& bundle) = 0;
    [[nodiscard]] virtual std::shared_ptr<UIStoryboard> storyboard(const std::string& name, const NSBundle& bundle) = 0;

    /// Stops the program when none is installed.
    [[nodiscard]] static InterfaceProvider& current();
    static void setCurrent(std::unique_ptr<InterfaceProvider> provider);
};
