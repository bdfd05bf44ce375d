#pragma once

#include <optional>
#include <string>

/// One name and value of an address's query, not encoded.
struct NSURLQueryItem {
    std::string name;
    std::optional<std::string> value; // absent: written as the bare name, without "="

    friend bool operator==(const NSURLQueryItem&, const NSURLQueryItem&) = default;
};
