#pragma once

#include "platform/runtime/ClassRegistry.h"

#include <memory>
#include <string>
#include <string_view>

/// The first top-level object of a new instance of the nib, made without an owner; null when there is none.
[[nodiscard]] std::shared_ptr<NSObject> firstObjectOfNib(const std::string& nibName);
/// Stops the program: "Could not load view with type " and the bare class name. The bundle was built wrongly.
[[noreturn]] void stopForMissingView(std::string_view className);

/// A new view of class `View`, made from the first top-level object of the nib. Nothing is kept: every call makes
/// another. A nib that does not yield such a view stops the program. Main thread.
template <class View>
[[nodiscard]] std::shared_ptr<View> loadViewFromNib(const std::string& nibName) {
    std::shared_ptr<View> view = std::dynamic_pointer_cast<View>(firstObjectOfNib(nibName));
    if (!view) {
        stopForMissingView(ClassRegistry::shared().nameOf(typeid(View)));
    }
    return view;
}
