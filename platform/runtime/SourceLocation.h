#pragma once

#include "platform/foundation/Finding.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <string>
#include <string_view>

/// The element of an interface file that an object was made from. All objects of a file share the file's name.
struct SourceLocation {
    std::shared_ptr<const std::string> file;
    TextPlace place;
    std::string_view element; // <label id="abc-de-fgh">; lives as long as `file`
};

/// Null for objects that no interface file made. Owned by the object.
[[nodiscard]] const SourceLocation* sourceLocationOf(const NSObject& object);
/// For the readers of interface files.
void setSourceLocation(NSObject& object, SourceLocation location);

/// Stops the program over a fault of `object`: the message, after the file and the place that the object was made from,
/// its class and its element.
[[noreturn]] void fatalErrorAt(const NSObject& object, const std::string& message);
