#pragma once

#include "platform/runtime/NSObject.h"

#include <memory>
#include <optional>
#include <string>

/// The place in an interface file that an object was made from.
struct SourceLocation {
    std::string file;
    int line = 0;   // counted from 1
    int column = 0; // counted from 1
};

/// None for objects that no interface file made.
[[nodiscard]] std::optional<SourceLocation> sourceLocationOf(const NSObject& object);
/// For the readers of interface files.
void setSourceLocation(NSObject& object, const std::shared_ptr<const std::string>& file, int line, int column);
