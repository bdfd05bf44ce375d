#pragma once

#include "platform/foundation/Finding.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

enum class JSONKind : std::uint8_t { null, boolean, number, string, array, object };

/// A value, of an array or object only that it begins.
struct JSONToken {
    JSONKind kind = JSONKind::null;
    std::string_view text{}; // of a string
    double number = 0;       // also 0 or 1 of a boolean
};

/// Is told of all that a JSON text holds, in the order in which it stands there. Texts last as long as the reader and
/// the text that it reads.
class JSONVisitor {
public:
    virtual ~JSONVisitor() = default;

    /// Of the member whose value comes next.
    virtual void key(std::string_view name) = 0;
    virtual void value(const JSONToken& token) = 0;
    /// Of the array or object that began last and is still open; `count` elements or members.
    virtual void end(std::size_t count) = 0;
};

/// Reads a JSON text, strict by RFC 8259: UTF-8 (a byte order mark is skipped), nothing after the root, at most 512
/// levels deep. Refers to the text. Any thread.
class JSONReader {
public:
    explicit JSONReader(std::string_view text);

    /// The failure has the place at which reading stopped; the visitor was told of what stands before it.
    [[nodiscard]] std::optional<Failure> read(JSONVisitor& visitor);

    /// Where a key or value begins, by the order in which the visitor was told of them, counted from 0; for messages,
    /// as it takes reading the text up to there once more. Only of a text that was read without failure.
    [[nodiscard]] TextPlace placeOf(std::size_t number) const;

private:
    class Events;

    std::optional<Failure> readAll(JSONVisitor& visitor);

    std::string_view m_body;             // without a byte order mark
    std::deque<std::string> m_unescaped; // strings that had escapes
};
