#include "platform/runtime/Value.h"

#include <array>

std::string kindOf(const Value& value) {
    static constexpr std::array<const char*, std::variant_size_v<Value>> names = {
        "a boolean", "a number", "a string", "a point", "a size", "a rect", "an object"};
    return names[value.index()];
}
