#pragma once

#include "platform/foundation/NSBundle.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <string>

class UIViewController;

/// A file of scenes. Abstract: the reader of the files stands elsewhere. A scene that is missing or wrong is a fault
/// of the bundle and stops the program with file, line and element.
class UIStoryboard : public NSObject {
public:
    [[nodiscard]] static std::shared_ptr<UIStoryboard> storyboardWithNameBundle(const std::string& name,
                                                                                const NSBundle& bundle);

    [[nodiscard]] virtual std::shared_ptr<UIViewController> instantiateInitialViewController() = 0;
    /// A new instance at every call. instantiateViewControllerWithIdentifier:
    [[nodiscard]] virtual std::shared_ptr<UIViewController>
    instantiateViewControllerWithIdentifier(const std::string& identifier) = 0;
};
