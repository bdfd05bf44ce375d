#include "platform/foundation/NSURL.h"

#include "platform/foundation/Text.h"

#include <boost/url/src.hpp> // the library is compiled here

#include <algorithm>

namespace urls = boost::urls;

namespace {

// What RFC 3986 lets stand literally; in the query without "&" and "=", which part its items.
constexpr auto literalInHost = urls::pchars + urls::grammar::lut_chars("[]") - urls::grammar::lut_chars("@");
constexpr auto literalInPath = urls::pchars + urls::grammar::lut_chars("/");
constexpr auto literalInQueryItem = urls::pchars + urls::grammar::lut_chars("/?") - urls::grammar::lut_chars("&=");

std::string encodedItem(const NSURLQueryItem& item) {
    std::string text = urls::encode(item.name, literalInQueryItem);
    return item.value ? text + "=" + urls::encode(*item.value, literalInQueryItem) : text;
}

bool isText(const NSURLQueryItem& item) {
    return isValidUTF8(item.name) && isValidUTF8(item.value.value_or(""));
}

} // namespace

std::optional<NSURL> NSURL::URLWithString(std::string_view text) {
    return !text.empty() && urls::parse_uri_reference(text) ? std::optional(NSURL(text)) : std::nullopt;
}

NSURLComponents NSURLComponents::componentsWithURL(const NSURL& url) {
    const urls::url_view view(url.absoluteString());
    NSURLComponents components{view.scheme(), view.host(), view.path(), {}};
    const urls::encoding_opts plusIsPlus(false);
    for (const auto& item : view.params(plusIsPlus)) {
        components.queryItems.push_back({item.key, item.has_value ? std::optional(item.value) : std::nullopt});
    }
    return components;
}

std::optional<NSURL> NSURLComponents::URL() const {
    if (!isValidUTF8(host) || !isValidUTF8(path) || !std::all_of(queryItems.begin(), queryItems.end(), isText)) {
        return std::nullopt;
    }
    std::string text = scheme.empty() ? "" : scheme + ":";
    if (!host.empty()) {
        text.append("//").append(urls::encode(host, literalInHost));
    }
    text += urls::encode(path, literalInPath);
    char separator = '?';
    for (const NSURLQueryItem& item : queryItems) {
        text += separator + encodedItem(item);
        separator = '&';
    }
    std::optional<NSURL> url = NSURL::URLWithString(text);
    return url && componentsWithURL(*url) == *this ? std::move(url) : std::nullopt; // not read as another host, say
}
