#include "platform/foundation/NSURL.h"

#include "platform/foundation/Text.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::string_view digits = "0123456789ABCDEFabcdef";

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isUnreserved(char character) {
    return isLetter(character) || isDigit(character) ||
           std::string_view("-._~").find(character) != std::string_view::npos;
}

bool isReserved(char character) {
    return std::string_view(":/?#[]@!$&'()*+,;=").find(character) != std::string_view::npos;
}

bool isScheme(std::string_view text) {
    return !text.empty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), [](char character) {
        return isLetter(character) || isDigit(character) || character == '+' || character == '-' || character == '.';
    });
}

std::string percentEncoded(std::string_view text, std::string_view literal) {
    std::string encoded;
    for (const char character : text) {
        if (isUnreserved(character) || literal.find(character) != std::string_view::npos) {
            encoded += character;
        } else {
            const auto byte = static_cast<unsigned char>(character);
            encoded += {'%', digits[byte >> 4], digits[byte & 0xF]};
        }
    }
    return encoded;
}

std::optional<char> decodedByte(std::string_view text) {
    if (text.size() < 3 || text[0] != '%') {
        return std::nullopt;
    }
    unsigned byte = 0;
    for (const char character : text.substr(1, 2)) {
        const std::size_t digit = digits.find(character);
        if (digit == std::string_view::npos) {
            return std::nullopt;
        }
        byte = byte * 16 + static_cast<unsigned>(digit < 16 ? digit : digit - 6);
    }
    return static_cast<char>(byte);
}

std::string percentDecoded(std::string_view text) {
    std::string decoded;
    while (!text.empty()) {
        const std::optional<char> byte = decodedByte(text);
        decoded += byte.value_or(text.front());
        text.remove_prefix(byte ? 3 : 1);
    }
    return decoded;
}

bool isWellFormed(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' ? !decodedByte(text.substr(i)) : !isUnreserved(text[i]) && !isReserved(text[i])) {
            return false;
        }
    }
    return true;
}

/// The five parts of RFC 3986, appendix B.
struct Parts {
    explicit Parts(std::string_view rest) {
        rest = rest.substr(0, rest.find('#'));
        const std::size_t colon = rest.find_first_of(":/?");
        if (colon != std::string_view::npos && rest[colon] == ':' && isScheme(rest.substr(0, colon))) {
            scheme = rest.substr(0, colon);
            rest.remove_prefix(colon + 1);
        }
        const std::size_t mark = rest.find('?');
        if (mark != std::string_view::npos) {
            query = rest.substr(mark + 1);
            rest = rest.substr(0, mark);
        }
        if (rest.substr(0, 2) == "//") {
            const std::size_t slash = rest.find('/', 2);
            authority = rest.substr(2, slash == std::string_view::npos ? slash : slash - 2);
            rest = slash == std::string_view::npos ? std::string_view() : rest.substr(slash);
        }
        path = rest;
    }

    std::string_view scheme;
    std::string_view authority;
    std::string_view path;
    std::string_view query;
};

/// Without user information and port.
std::string_view hostIn(std::string_view authority) {
    if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) {
        authority.remove_prefix(at + 1);
    }
    if (authority.substr(0, 1) == "[") { // an IPv6 address holds colons of its own
        return authority.substr(0, authority.find(']') + 1);
    }
    return authority.substr(0, authority.find(':'));
}

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

std::optional<NSURL> NSURL::URLWithString(std::string_view text) {
    if (text.empty() || !isWellFormed(text)) {
        return std::nullopt;
    }
    return NSURL(text);
}

NSURLComponents NSURLComponents::componentsWithURL(const NSURL& url) {
    NSURLComponents components;
    const Parts parts(url.absoluteString());
    components.scheme = parts.scheme;
    components.host = percentDecoded(hostIn(parts.authority));
    components.path = percentDecoded(parts.path);
    components.queryItems = decodedItems(parts.query);
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
