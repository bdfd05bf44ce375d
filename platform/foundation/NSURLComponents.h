#pragma once

#include "platform/foundation/NSURL.h"
#include "platform/foundation/NSURLQueryItem.h"

#include <optional>
#include <string>
#include <vector>

/// The parts of an address, not encoded, to build one or to take one apart. Empty parts are left out.
struct NSURLComponents {
    /// The parts of `url`, percent-decoded.
    [[nodiscard]] static NSURLComponents componentsWithURL(const NSURL& url);

    /// The address of these parts, encoded by RFC 3986; in names and values of the query "&" and "=" are encoded too,
    /// so that it always has as many items as are given here. None when a part is not UTF-8 or cannot stand in an
    /// address.
    [[nodiscard]] std::optional<NSURL> URL() const;

    std::string scheme;
    std::string host;
    std::string path; // begins with "/" when there is a host
    std::vector<NSURLQueryItem> queryItems;
};
