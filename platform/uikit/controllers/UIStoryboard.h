#pragma once

#include "platform/foundation/NSBundle.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <string>

class UIViewController;

/// A file of scenes. Abstract for those who only use storyboards; the static function is defined with the reader of the
/// files, in platform/interface/Storyboard.cpp. A scene that is missing or wrong is a fault of the bundle and stops the
/// program with file, line and element.
class UIStoryboard : public NSObject {
public:
    [[nodiscard]] static std::shared_ptr<UIStoryboard> storyboardWithNameBundle(const std::string& name,
                                                                                const NSBundle& bundle);

    [[nodiscard]] virtual std::shared_ptr<UIViewController> instantiateInitialViewController() = 0;
    /// A new instance at every call. instantiateViewControllerWithIdentifier:
    [[nodiscard]] virtual std::shared_ptr<UIViewController>
    instantiateViewControllerWithIdentifier(const std::string& identifier) = 0;
};
