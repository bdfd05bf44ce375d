#pragma once

#include <cstddef>
#include <cstdint>

enum class JSONKind : std::uint8_t { null, boolean, number, string, array, object };

/// One entry of a parsed document, which is a flat list: a container is followed by all that it holds, a member's value
/// by nothing and preceded by its key (a string). Made by JSONDocument, read through JSONValue.
struct JSONNode {
    JSONKind kind = JSONKind::null;
    std::uint32_t count = 0; // bytes of a string; elements or members of a container; 0 or 1 of a boolean
    union {
        double number = 0;
        const char* text;  // owned by the document
        std::size_t nodes; // of a container: itself and all inside
    };

    [[nodiscard]] const JSONNode* next() const {
        return this + (kind == JSONKind::array || kind == JSONKind::object ? nodes : 1);
    }
};
