#include "simulator/check/TextEncoding.h"

#include <utf8proc.h>

#include <algorithm>

std::string foreignEncoding(std::string_view text) {
    if (text.starts_with("{\\rtf") || text.starts_with("PK\x03\x04") || text.starts_with("\xD0\xCF\x11\xE0")) {
        return "a word processor's document, no plain text";
    }
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        return "UTF-16";
    }
    return text.substr(0, 4).find('\0') == std::string_view::npos ? "" : "UTF-16 or UTF-32";
}

std::size_t firstInvalidUTF8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        utf8proc_int32_t code = 0;
        const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data() + at);
        const utf8proc_ssize_t length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - at), &code);
        if (length <= 0) {
            return at;
        }
        at += static_cast<std::size_t>(length);
    }
    return std::string_view::npos;
}

std::string readableText(std::string_view text) {
    std::string result;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t sound = std::min(firstInvalidUTF8(text.substr(begin)), text.size() - begin);
        result += text.substr(begin, sound);
        begin += sound;
        if (begin < text.size()) {
            const auto byte = static_cast<unsigned char>(text[begin++]);
            result += static_cast<char>(0xC0 | (byte >> 6));
            result += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return result;
}
