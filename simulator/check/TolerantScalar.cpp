#include "simulator/check/TolerantScalar.h"

#include "platform/foundation/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::string_view lineBlanks = " \t";
constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_";
constexpr std::string_view numberLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-.";

/// Marks that people use as quotes. A text ends with one of the family that it begins with.
using Family = std::array<std::string_view, 8>;
constexpr Family doubleQuotes{"\"", "“", "”", "„", "‟", "«", "»", "″"};
constexpr Family singleQuotes{"'", "`", "´", "‘", "’", "‚", "‹", "›"};

/// What is written, in small letters, and what it means.
using Word = std::pair<std::string_view, std::string_view>;
constexpr std::array<Word, 8> knownWords{{{"true", "true"},
                                          {"yes", "true"},
                                          {"on", "true"},
                                          {"false", "false"},
                                          {"no", "false"},
                                          {"off", "false"},
                                          {"null", "null"},
                                          {"none", "null"}}};

class ScalarReader {
public:
    explicit ScalarReader(TextCursor& text) : m_text(text) {}

    TolerantValue read() {
        const std::size_t begin = m_text.at();
        if (m_text.sees("\"")) {
            return {JSONKind::string, begin, readText()};
        }
        for (const Family& family : {doubleQuotes, singleQuotes}) {
            if (const std::string_view mark = oneOf(family, begin); !mark.empty()) {
                return {JSONKind::string, begin, readWronglyQuoted(mark, family)};
            }
        }
        return m_text.seesOneOf("+-.0123456789") ? readNumber() : readWord();
    }

    TolerantValue readKey() {
        const std::size_t begin = m_text.at();
        if (const std::size_t end = endOfUnclosedKey(begin); end > 0) {
            m_text.tell("content.quotes", begin, "the closing quote \" of this key is missing");
            m_text.moveTo(end);
            return {JSONKind::string, begin, m_text.part(begin + 1, end)};
        }
        if (!oneOf(doubleQuotes, begin).empty() || !oneOf(singleQuotes, begin).empty()) {
            return read();
        }
        const std::string key = readBare();
        m_text.tell(key.empty() ? "content.syntax" : "content.quotes", begin,
                    key.empty() ? "a key is expected here, such as \"title\""
                                : "a key stands in quotes: " + quotedShort(key));
        return {JSONKind::string, begin, key};
    }

private:
    // Quotes.

    [[nodiscard]] std::string_view oneOf(const Family& family, std::size_t at) const {
        const auto found =
            std::find_if(family.begin(), family.end(), [&](auto mark) { return m_text.startsAt(at, mark); });
        return found == family.end() ? std::string_view() : *found;
    }

    /// Whether what follows, blanks aside, is what follows a text.
    [[nodiscard]] bool isAfterText(std::size_t at) const {
        at = m_text.skip(lineBlanks, at);
        return m_text.isEnd(at) || m_text.isOneOf(at, ",:}]\r\n;=") || m_text.isComment(at);
    }

    /// Whether `title":` stands there: the text before it has lost its closing quote.
    [[nodiscard]] bool isKeyWithoutOpening(std::size_t at) const {
        const std::size_t end = m_text.skip(letters, at);
        return end > at && m_text.isOneOf(end, "\"") && m_text.isOneOf(m_text.skip(lineBlanks, end + 1), ":");
    }

    /// Where `title` ends in `"title: "Easy"`; 0 for a key that is closed, also for one that holds a colon.
    [[nodiscard]] std::size_t endOfUnclosedKey(std::size_t at) const {
        const std::size_t end = m_text.skip(letters, at + 1);
        if (!m_text.isOneOf(at, "\"") || end == at + 1 || !m_text.isOneOf(m_text.skip(lineBlanks, end), ":")) {
            return 0;
        }
        const std::size_t quote = m_text.find("\"\\\r\n", end);
        const bool isClosing = m_text.isOneOf(quote, "\"") && m_text.isOneOf(m_text.skip(" \t\r\n", quote + 1), ":");
        return isClosing || m_text.isOneOf(quote, "\\") ? 0 : end;
    }

    /// Whether the quote there is one of the text's own: another one, in the same line, ends the text.
    [[nodiscard]] bool isInnerQuote(std::size_t at) const {
        const bool commaIsMissing = m_text.isOneOf(m_text.skip(lineBlanks, at + 1), "\"{[");
        return !isAfterText(at + 1) && !commaIsMissing && m_text.isOneOf(m_text.find("\"\r\n", at + 1), "\"");
    }

    /// Whether the text has no closing quote: its line ends there, and the next one is none of a text.
    [[nodiscard]] bool isLeftOpen(std::size_t at) const {
        const std::size_t next = m_text.isOneOf(at, "\r\n") ? m_text.skip(" \t\r\n", at) : at;
        return m_text.isEnd(next) || (next > at && m_text.isOneOf(next, "\"{}[]"));
    }

    // Texts.

    std::string readText() {
        const std::size_t open = m_text.at();
        std::string text;
        bool toldInner = false;
        m_text.advance();
        for (std::size_t at = open + 1; !isLeftOpen(at); at = m_text.at()) {
            if (m_text.sees("\"")) {
                if (isKeyWithoutOpening(at + 1) && !isAfterText(at + 1)) {
                    return readUnclosed(open, at);
                }
                if (!isInnerQuote(at)) {
                    return endText(text);
                }
                if (!std::exchange(toldInner, true)) {
                    m_text.tell("content.quotes", at, "a quote inside a text is written \\\"");
                }
            }
            readCharacter(text);
        }
        return readUnclosed(open, m_text.find("\r\n", open));
    }

    std::string endText(std::string& text) {
        const bool isDoubled = !text.empty() && m_text.sees("\"\"") && isAfterText(m_text.at() + 2);
        m_text.advance(isDoubled ? 2 : 1);
        if (isDoubled) {
            m_text.tell("content.quotes", m_text.at() - 1, "one quote too many");
        }
        return std::move(text);
    }

    std::string readUnclosed(std::size_t open, std::size_t end) {
        m_text.tell("content.quotes", open, "the closing quote \" of this text is missing");
        return readUpTo(open + 1, end);
    }

    /// The text from `begin` to `end`, blanks and a comma behind it left out.
    std::string readUpTo(std::size_t begin, std::size_t end) {
        end = std::max(m_text.endBefore(end), begin);
        end -= end > begin && m_text.isOneOf(end - 1, ",") ? 1 : 0;
        m_text.moveTo(end);
        return m_text.part(begin, end);
    }

    std::string readWronglyQuoted(std::string_view mark, const Family& family) {
        m_text.tellHabit("content.quotes", m_text.at(),
                         "write the straight quotes \" around a text, not " + std::string(mark));
        m_text.advance(mark.size());
        const std::size_t begin = m_text.at();
        std::size_t at = begin;
        for (; !m_text.isEnd(at) && !m_text.isOneOf(at, "\r\n"); ++at) {
            if (const std::string_view end = oneOf(family, at); !end.empty() && isAfterText(at + end.size())) {
                m_text.moveTo(at + end.size());
                return m_text.part(begin, at);
            }
        }
        return readUpTo(begin, at);
    }

    void readCharacter(std::string& text) {
        if (m_text.sees("\\")) {
            readEscape(text);
        } else if (static_cast<unsigned char>(m_text.next()) < ' ') {
            text += ' ';
            readControl();
        } else {
            text += m_text.next();
            m_text.advance();
        }
    }

    void readControl() {
        if (m_text.seesOneOf("\r\n")) {
            m_text.tell("content.text", m_text.at(), "a text stands in one line; write \\n where its next line begins");
            m_text.moveTo(m_text.skip(" \t\r\n", m_text.at()));
            return;
        }
        const std::string code = codeOf(m_text.part(m_text.at(), m_text.at() + 1));
        m_text.tellHabit("content.text", m_text.at(),
                         m_text.sees("\t") ? "a tab stands inside a text; write a space, or \\t"
                                           : "an invisible character (" + code + ") stands inside a text; delete it");
        m_text.advance();
    }

    /// The strict reader knows what each means: \n, \u00E9, and \uD83D\uDE00, one character in two halves.
    void readEscape(std::string& text) {
        const std::size_t begin = m_text.at();
        for (const std::size_t length : {2u, 6u, 12u}) {
            if (const auto read = JSONDocument::parse(quotedShort(m_text.part(begin, begin + length)))) {
                text += *read.value().root().string();
                m_text.advance(length);
                return;
            }
        }
        const bool isHalf = m_text.sees("\\u") && m_text.skip("0123456789abcdefABCDEF", begin + 2) >= begin + 6;
        m_text.tell("content.text", begin,
                    isHalf
                        ? m_text.part(begin, begin + 6) + " is half of a character (a lone surrogate); write it itself"
                        : "after a \\ stands one of \" \\ n t, or u and four digits; a \\ itself is written \\\\");
        m_text.advance(isHalf ? 6 : 1);
    }

    // Numbers and words.

    TolerantValue readNumber() {
        const std::size_t begin = m_text.at();
        m_text.moveTo(m_text.skip(numberLetters, begin));
        const std::string number = m_text.part(begin, m_text.at());
        if (!JSONDocument::parse(number)) {
            m_text.tell("content.syntax", begin, quotedShort(number) + " is no number; a text stands in quotes");
        }
        return {JSONKind::number, begin, number};
    }

    /// Words without quotes, and a closing quote whose opening one is missing.
    std::string readBare() {
        const std::size_t begin = m_text.at();
        while (!m_text.atEnd() && !m_text.seesOneOf(",:;={}[]\"\r\n") && !m_text.isComment(m_text.at()) &&
               (m_text.sees(" ") || !m_text.seesInvisible())) {
            m_text.advance();
        }
        const std::size_t end = std::max(m_text.endBefore(m_text.at()), begin);
        const bool isClosed = m_text.sees("\"") && isAfterText(m_text.at() + 1);
        m_text.moveTo(isClosed ? m_text.at() + 1 : end);
        return m_text.part(begin, end);
    }

    /// What lacks its opening quote goes on to the closing one, commas and colons included.
    std::string readToClosingQuote(std::size_t begin, const std::string& written) {
        constexpr std::size_t longest = 500;
        std::size_t quote = m_text.at();
        while (!m_text.isEnd(quote) && quote < begin + longest && !m_text.isOneOf(quote, "\"\r\n{}[]")) {
            ++quote;
        }
        const bool isOpening = m_text.isOneOf(quote - 1, " \t,:\"");
        if (isOpening || !m_text.isOneOf(quote, "\"") || !isAfterText(quote + 1)) {
            return written;
        }
        m_text.moveTo(quote + 1);
        return m_text.part(begin, quote);
    }

    TolerantValue readWord() {
        const std::size_t begin = m_text.at();
        std::string written = readBare();
        const auto known = std::find_if(knownWords.begin(), knownWords.end(),
                                        [&](const Word& word) { return word.first == lowercased(written); });
        if (m_text.at() == begin) { // : ; = where a value is expected
            m_text.tell("content.syntax", begin, std::string(1, m_text.next()) + " has no place here");
            m_text.advance();
        } else if (known == knownWords.end()) {
            written = readToClosingQuote(begin, written);
            m_text.tell("content.quotes", begin, "a text stands in quotes: " + quotedShort(written));
        } else {
            if (known->second != m_text.part(begin, m_text.at())) {
                m_text.tellHabit("content.word", begin, "write " + std::string(known->second) + ", not " + written);
            }
            return {known->second == "null" ? JSONKind::null : JSONKind::boolean, begin, "", known->second == "true"};
        }
        return {JSONKind::string, begin, written};
    }

    TextCursor& m_text;
};

} // namespace

TolerantValue readScalar(TextCursor& cursor) {
    return ScalarReader(cursor).read();
}

TolerantValue readKey(TextCursor& cursor) {
    return ScalarReader(cursor).readKey();
}
