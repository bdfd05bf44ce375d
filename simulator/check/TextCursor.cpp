#include "simulator/check/TextCursor.h"

#include <utf8proc.h>

#include <array>
#include <cstdio>

namespace {

constexpr std::string_view blanks = " \t\r\n";

utf8proc_ssize_t readCharacter(std::string_view text, utf8proc_int32_t& code) {
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
    return utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &code);
}

} // namespace

std::string TextCursor::part(std::size_t begin, std::size_t end) const {
    return std::string(m_text.substr(begin, end - begin));
}

bool TextCursor::startsAt(std::size_t at, std::string_view word) const {
    return m_text.substr(std::min(at, m_text.size())).starts_with(word);
}

bool TextCursor::isOneOf(std::size_t at, std::string_view letters) const {
    return at < m_text.size() && letters.find(m_text[at]) != std::string_view::npos;
}

bool TextCursor::isComment(std::size_t at) const {
    return startsAt(at, "//") || startsAt(at, "/*") || startsAt(at, "#");
}

std::size_t TextCursor::find(std::string_view letters, std::size_t at) const {
    return std::min(m_text.find_first_of(letters, at), m_text.size());
}

std::size_t TextCursor::skip(std::string_view letters, std::size_t at) const {
    return std::min(m_text.find_first_not_of(letters, at), m_text.size());
}

std::size_t TextCursor::endBefore(std::size_t at) const {
    return m_text.substr(0, at).find_last_not_of(blanks) + 1;
}

std::size_t TextCursor::indentation(std::size_t at) const {
    const std::size_t line = m_places.start(m_places.lineAt(at));
    return skip(" \t", line) - line;
}

bool TextCursor::beginsLine(std::size_t at) const {
    return m_places.start(m_places.lineAt(at)) + indentation(at) == at;
}

std::size_t TextCursor::nextLine(std::size_t at) const {
    return skip(blanks, m_places.start(m_places.lineAt(at) + 1));
}

void TextCursor::skipBlanks() {
    for (moveTo(skip(blanks, m_at)); !atEnd(); moveTo(skip(blanks, m_at))) {
        if (isComment(m_at)) {
            tellHabit("content.comment", m_at, "a list has no comments; take this one out");
            skipComment();
        } else if (seesInvisible()) {
            tellHabit("content.syntax", m_at,
                      "an invisible character (" + codeOf(m_text.substr(m_at)) + "); delete it, or write a space");
            while (seesInvisible()) { // all in a row are one slip
                advance(invisibleBytes(m_text.substr(m_at)));
            }
        } else {
            return;
        }
    }
}

void TextCursor::skipComment() {
    if (!sees("/*")) {
        moveTo(find("\r\n", m_at));
        return;
    }
    moveTo(m_text.find("*/", m_at));
    advance(2);
}

std::size_t invisibleBytes(std::string_view text) {
    utf8proc_int32_t code = 0;
    const bool isPlain = text.empty() || (text.front() > ' ' && text.front() < '\x7F');
    const utf8proc_ssize_t bytes = isPlain ? 0 : readCharacter(text, code);
    const auto category = bytes > 0 ? utf8proc_category(code) : UTF8PROC_CATEGORY_CN;
    const bool isSpace = category >= UTF8PROC_CATEGORY_ZS && category <= UTF8PROC_CATEGORY_ZP;
    const bool isControl = category == UTF8PROC_CATEGORY_CC || category == UTF8PROC_CATEGORY_CF;
    return isSpace || isControl ? static_cast<std::size_t>(bytes) : 0;
}

std::string codeOf(std::string_view text) {
    utf8proc_int32_t character = 0;
    static_cast<void>(readCharacter(text, character));
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), "U+%04X", static_cast<unsigned>(std::max(character, 0)));
    return code.data();
}

std::string quotedShort(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::size_t end = std::min(text.size(), longest);
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
        ++end;
    }
    return std::string("\"").append(text.substr(0, end)).append(end < text.size() ? "…\"" : "\"");
}
