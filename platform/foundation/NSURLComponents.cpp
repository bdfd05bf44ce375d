#include "platform/foundation/NSURLComponents.h"

#include "platform/foundation/NSURLCharacters.h"
#include "platform/foundation/Text.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace {

// What RFC 3986 lets stand literally, beyond the unreserved characters.
constexpr std::string_view literalInHost = "!$&'()*+,;=";
constexpr std::string_view literalInPath = "!$&'()*+,;=:@/";
constexpr std::string_view literalInQueryItem = "!$'()*+,;:@/?"; // without "&" and "=", which part the items

std::string encodedItem(const NSURLQueryItem& item) {
    std::string text = percentEncoded(item.name, literalInQueryItem);
    if (item.value) {
        text.append("=").append(percentEncoded(*item.value, literalInQueryItem));
    }
    return text;
}

NSURLQueryItem decodedItem(std::string_view text) {
    const std::size_t equals = text.find('=');
    NSURLQueryItem item{percentDecoded(text.substr(0, equals)), std::nullopt};
    if (equals != std::string_view::npos) {
        item.value = percentDecoded(text.substr(equals + 1));
    }
    return item;
}

std::vector<NSURLQueryItem> decodedItems(std::string_view query) {
    std::vector<NSURLQueryItem> items;
    while (!query.empty()) {
        const std::size_t end = query.find('&');
        items.push_back(decodedItem(query.substr(0, end)));
        query = end == std::string_view::npos ? std::string_view() : query.substr(end + 1);
    }
    return items;
}

bool isText(const NSURLQueryItem& item) {
    return isValidUTF8(item.name) && isValidUTF8(item.value.value_or(""));
}

/// Without these rules the written path would be read back as a host or a scheme.
bool pathCanFollow(std::string_view path, std::string_view scheme, std::string_view host) {
    if (!host.empty()) {
        return path.empty() || path.front() == '/';
    }
    const bool looksLikeHost = path.substr(0, 2) == "//";
    const bool looksLikeScheme = scheme.empty() && path.substr(0, path.find('/')).find(':') != std::string_view::npos;
    return !looksLikeHost && !looksLikeScheme;
}

std::string encodedHost(std::string_view host) {
    const bool isAddress = host.size() > 2 && host.front() == '[' && host.back() == ']';
    return percentEncoded(host, isAddress ? "[]:" : literalInHost);
}

} // namespace

NSURLComponents NSURLComponents::componentsWithURL(const NSURL& url) {
    NSURLComponents components;
    components.scheme = url.scheme();
    components.host = percentDecoded(url.host());
    components.path = percentDecoded(url.path());
    components.queryItems = decodedItems(url.query());
    return components;
}

std::optional<NSURL> NSURLComponents::URL() const {
    const bool isValid = (scheme.empty() || isScheme(scheme)) && pathCanFollow(path, scheme, host) &&
                         isValidUTF8(host) && isValidUTF8(path) &&
                         std::all_of(queryItems.begin(), queryItems.end(), isText);
    if (!isValid) {
        return std::nullopt;
    }
    std::string text = scheme.empty() ? "" : scheme + ":";
    if (!host.empty()) {
        text.append("//").append(encodedHost(host));
    }
    text += percentEncoded(path, literalInPath);
    char separator = '?';
    for (const NSURLQueryItem& item : queryItems) {
        text += separator + encodedItem(item);
        separator = '&';
    }
    return NSURL::URLWithString(text);
}
