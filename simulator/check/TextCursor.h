#pragma once

#include "simulator/check/Slips.h"

/// How many bytes the character has that a text begins with, if nobody sees it; 0 for any other.
[[nodiscard]] std::size_t invisibleBytes(std::string_view text);
/// "U+00A0", of the character that a text begins with.
[[nodiscard]] std::string codeOf(std::string_view text);
/// In quotes, and not too long for a message.
[[nodiscard]] std::string quotedShort(std::string_view text);

/// Where the tolerant reading of a text stands: looks ahead and around, and steps over what lies between two values;
/// what must not lie there it tells. Refers to the text and to the slips.
class TextCursor {
public:
    TextCursor(std::string_view text, Slips& slips) : m_text(text), m_places(text), m_slips(slips) {}

    [[nodiscard]] std::size_t at() const { return m_at; }
    [[nodiscard]] bool atEnd() const { return isEnd(m_at); }
    [[nodiscard]] bool isEnd(std::size_t at) const { return at >= m_text.size(); }
    /// The character that stands next; a zero at the end.
    [[nodiscard]] char next() const { return atEnd() ? '\0' : m_text[m_at]; }
    [[nodiscard]] bool sees(std::string_view word) const { return startsAt(m_at, word); }
    [[nodiscard]] bool seesOneOf(std::string_view letters) const { return isOneOf(m_at, letters); }

    [[nodiscard]] std::string part(std::size_t begin, std::size_t end) const;
    [[nodiscard]] bool startsAt(std::size_t at, std::string_view word) const;
    [[nodiscard]] bool isOneOf(std::size_t at, std::string_view letters) const;
    [[nodiscard]] bool isComment(std::size_t at) const;
    /// The first place from `at` on that has one of the letters, or that has none of them; at most the end.
    [[nodiscard]] std::size_t find(std::string_view letters, std::size_t at) const;
    [[nodiscard]] std::size_t skip(std::string_view letters, std::size_t at) const;
    /// Just behind the last character before `at` that is no blank.
    [[nodiscard]] std::size_t endBefore(std::size_t at) const;
    /// How far the line of `at` is indented.
    [[nodiscard]] std::size_t indentation(std::size_t at) const;
    [[nodiscard]] bool beginsLine(std::size_t at) const;
    /// The first character behind the line of `at` that is no blank.
    [[nodiscard]] std::size_t nextLine(std::size_t at) const;
    [[nodiscard]] std::string lineOf(std::size_t at) const { return "line " + std::to_string(m_places.lineAt(at)); }
    void moveTo(std::size_t at) { m_at = std::min(at, m_text.size()); }
    [[nodiscard]] bool seesInvisible() const { return invisibleBytes(m_text.substr(m_at)) > 0; }
    void advance(std::size_t bytes = 1) { moveTo(m_at + bytes); }
    void skipBlanks();

    void tell(std::string_view rule, std::size_t offset, std::string what, Slips::Kind kind = Slips::Kind::single) {
        m_slips.tell(rule, offset, std::move(what), kind);
    }
    void tellHabit(std::string_view rule, std::size_t offset, std::string what) {
        tell(rule, offset, std::move(what), Slips::Kind::habit);
    }

private:
    void skipComment();

    std::string_view m_text;
    TextPlaces m_places;
    Slips& m_slips;
    std::size_t m_at = 0;
};
