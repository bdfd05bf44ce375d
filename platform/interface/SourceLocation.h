#pragma once

#include "platform/foundation/Finding.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <optional>
#include <string>

/// The place in an interface file that an object was made from.
struct SourceLocation {
    std::string file;
    TextPlace place;
};

/// None for objects that no interface file made.
[[nodiscard]] std::optional<SourceLocation> sourceLocationOf(const NSObject& object);
/// For the readers of interface files.
void setSourceLocation(NSObject& object, const std::shared_ptr<const std::string>& file, TextPlace place);
