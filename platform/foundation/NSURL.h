#pragma once

#include <optional>
#include <string>
#include <string_view>

/// An address that is well formed by RFC 3986: ASCII, other characters percent-encoded. Parts are given as they stand
/// in the text, still encoded, and are empty when absent.
class NSURL {
public:
    /// None for the empty text and for a text with characters that an address cannot hold. Selector URLWithString:
    [[nodiscard]] static std::optional<NSURL> URLWithString(std::string_view text);

    [[nodiscard]] const std::string& absoluteString() const { return m_text; }
    [[nodiscard]] std::string_view scheme() const;
    /// Without user information and port.
    [[nodiscard]] std::string_view host() const;
    [[nodiscard]] std::string_view path() const;
    [[nodiscard]] std::string_view query() const;

    friend bool operator==(const NSURL&, const NSURL&) = default;

private:
    explicit NSURL(std::string_view text) : m_text(text) {}

    std::string m_text;
};
