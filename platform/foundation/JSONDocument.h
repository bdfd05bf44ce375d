#pragma once

#include "platform/foundation/JSONReader.h"
#include "platform/foundation/Result.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One entry of a parsed document, which is a flat list: a container is followed by all that it holds, a member's value
/// by nothing and preceded by its key (a string). Made by JSONDocument, read through JSONValue.
struct JSONNode {
    JSONKind kind = JSONKind::null;
    std::uint32_t count = 0; // bytes of a string; elements or members of a container
    union {
        double number = 0; // also 0 or 1 of a boolean
        const char* text;  // owned by the document
        std::size_t nodes; // of a container: itself and all inside
    };

    [[nodiscard]] const JSONNode* next() const {
        return this + (kind == JSONKind::array || kind == JSONKind::object ? nodes : 1);
    }
};

/// A value inside a JSONDocument: a light reference, valid as long as the document, that copies no text.
class JSONValue {
public:
    struct Member;

    explicit JSONValue(const JSONNode* node) : m_node(node) {}

    [[nodiscard]] JSONKind kind() const { return m_node->kind; }
    [[nodiscard]] bool is(JSONKind kind) const { return m_node->kind == kind; }

    /// None when the value is of another kind.
    [[nodiscard]] std::optional<std::string_view> string() const;
    [[nodiscard]] std::optional<bool> boolean() const;
    [[nodiscard]] std::optional<double> number() const;
    /// Of an array, in order; empty for every other kind.
    [[nodiscard]] std::vector<JSONValue> elements() const;
    /// Of an object, in order, keys as they stand (one may occur twice).
    [[nodiscard]] std::vector<Member> members() const;
    /// The member of that name of an object (the last, should there be several); none when there is none, or when this
    /// is no object.
    [[nodiscard]] std::optional<JSONValue> find(std::string_view key) const;

private:
    friend class JSONDocument;

    const JSONNode* m_node;
};

struct JSONValue::Member {
    std::string_view key;
    JSONValue value;
};

/// A JSON text as the reader reads it, whole. Owns all that its values refer to; may be moved, not copied. Any thread.
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

    explicit JSONDocument(std::string text);
    [[nodiscard]] TextPlace placeOf(const JSONNode* node) const;

    std::unique_ptr<const std::string> m_text;
    JSONReader m_reader; // the strings of the nodes refer to the text and to the reader
    std::vector<JSONNode> m_nodes;
};
