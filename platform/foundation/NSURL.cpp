#include "platform/foundation/NSURL.h"

#include "platform/foundation/NSURLCharacters.h"

#include <cstddef>

namespace {

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

} // namespace

std::optional<NSURL> NSURL::URLWithString(std::string_view text) {
    if (text.empty() || !isWellFormed(text)) {
        return std::nullopt;
    }
    return NSURL(text);
}

std::string_view NSURL::scheme() const {
    return Parts(m_text).scheme;
}

std::string_view NSURL::host() const {
    std::string_view host = Parts(m_text).authority;
    if (const std::size_t at = host.rfind('@'); at != std::string_view::npos) {
        host.remove_prefix(at + 1);
    }
    if (host.substr(0, 1) == "[") { // an IPv6 address holds colons of its own
        return host.substr(0, host.find(']') + 1);
    }
    return host.substr(0, host.find(':'));
}

std::string_view NSURL::path() const {
    return Parts(m_text).path;
}

std::string_view NSURL::query() const {
    return Parts(m_text).query;
}
