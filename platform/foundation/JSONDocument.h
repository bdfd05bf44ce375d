#pragma once

#include "platform/foundation/JSONValue.h"
#include "platform/foundation/Result.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <vector>

/// A parsed JSON text, strict by RFC 8259: UTF-8 (a byte order mark is skipped), nothing after the root, at most 512
/// levels deep. Owns all that its values refer to; may be moved, not copied. Any thread.
class JSONDocument {
public:
    /// The failure has the place at which reading stopped.
    [[nodiscard]] static Result<JSONDocument> parse(std::string text);

    [[nodiscard]] JSONValue root() const { return JSONValue(m_nodes.data()); }

    /// Where a value or a member's key begins, for messages: it takes reading the text up to there once more.
    [[nodiscard]] TextPlace placeOf(JSONValue value) const { return placeOf(value.m_node); }
    [[nodiscard]] TextPlace placeOfKey(const JSONValue::Member& member) const;

private:
    class Builder;

    JSONDocument() = default;
    [[nodiscard]] static Result<JSONDocument> read(std::string text);
    [[nodiscard]] TextPlace placeOf(const JSONNode* node) const;
    bool isInText(const char* pointer) const;

    std::unique_ptr<const std::string> m_text; // strings without escapes refer to it
    std::deque<std::string> m_unescaped;       // strings that had escapes
    std::vector<JSONNode> m_nodes;
};
