#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <string>
#include <variant>

/// A value on its way to a key-set property. Objects (colours, images) travel as NSObject; a null object is "nil".
using Value = std::variant<bool, double, std::string, CGPoint, CGSize, CGRect, std::shared_ptr<NSObject>>;

/// "a number", "a boolean" …, for messages about a value of the wrong type.
[[nodiscard]] std::string kindOf(const Value& value);
