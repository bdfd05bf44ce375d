#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// An address that is well formed by RFC 3986: ASCII, other characters percent-encoded.
class NSURL {
public:
    /// None for the empty text and for a text that is no address. Selector URLWithString:
    [[nodiscard]] static std::optional<NSURL> URLWithString(std::string_view text);

    [[nodiscard]] const std::string& absoluteString() const { return m_text; }

    friend bool operator==(const NSURL&, const NSURL&) = default;

private:
    explicit NSURL(std::string_view text) : m_text(text) {}

    std::string m_text;
};

/// One name and value of an address's query, not encoded.
struct NSURLQueryItem {
    std::string name;
    std::optional<std::string> value; // absent: written as the bare name, without "="

    friend bool operator==(const NSURLQueryItem&, const NSURLQueryItem&) = default;
};

/// The parts of an address, not encoded, to build one or to take one apart. Empty parts are left out.
struct NSURLComponents {
    /// The parts of `url`, percent-decoded; user information, port and fragment are left out.
    [[nodiscard]] static NSURLComponents componentsWithURL(const NSURL& url);

    /// The address of these parts, encoded by RFC 3986; in names and values of the query "&" and "=" are encoded too,
    /// so that it always has as many items as are given here. None when a part is not UTF-8 or would read differently
    /// in the address.
    [[nodiscard]] std::optional<NSURL> URL() const;

    std::string scheme;
    std::string host;
    std::string path; // begins with "/" when there is a host
    std::vector<NSURLQueryItem> queryItems;

    friend bool operator==(const NSURLComponents&, const NSURLComponents&) = default;
};
