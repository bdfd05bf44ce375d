#include "simulator/check/TolerantJSON.h"

#include "platform/foundation/TextPlaces.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>

namespace {

constexpr std::size_t greatestDepth = 512; // that of JSONDocument
constexpr std::size_t mostSlips = 100;
constexpr auto npos = std::string_view::npos;

bool isBlank(char letter) {
    return letter == ' ' || letter == '\t' || letter == '\r' || letter == '\n';
}

bool isDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

bool isLetter(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || letter == '_' || letter == '$';
}

/// Quotes that are none in JSON, with what may end a text that they begin.
struct WrongQuote {
    std::string_view mark;
    std::array<std::string_view, 3> ends;
};
constexpr std::array<WrongQuote, 9> wrongQuotes{{
    {"'", {"'", "’", "‘"}},
    {"`", {"`", "'", "´"}},
    {"´", {"´", "'", "`"}},
    {"“", {"”", "“", "\""}},
    {"”", {"”", "“", "\""}},
    {"„", {"“", "”", "\""}},
    {"‘", {"’", "'", "‘"}},
    {"’", {"’", "'", "‘"}},
    {"«", {"»", "»", "\""}},
}};

/// Characters that nobody sees.
constexpr std::array<std::pair<std::string_view, const char*>, 6> invisible{{
    {"\xC2\xA0", "a space that does not break lines"},
    {"\xE2\x80\xAF", "a narrow space that does not break lines"},
    {"\xE2\x80\x8B", "a space without width"},
    {"\xE2\x80\xA8", "a line separator"},
    {"\xE3\x80\x80", "a wide space"},
    {"\xEF\xBB\xBF", "a byte order mark"},
}};

std::size_t lengthOfCharacter(std::string_view text, std::size_t at) {
    std::size_t length = 1;
    while (at + length < text.size() && (static_cast<unsigned char>(text[at + length]) & 0xC0) == 0x80) {
        ++length;
    }
    return length;
}

/// The text of a slip that names what stands there, without what would spoil a line.
std::string shown(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::string result;
    for (std::size_t at = 0; at < text.size() && result.size() < longest;) {
        const std::size_t length = lengthOfCharacter(text, at);
        const bool isControl = static_cast<unsigned char>(text[at]) < 0x20;
        result += isControl ? std::string("?") : std::string(text.substr(at, length));
        at += length;
    }
    return result.size() < text.size() ? result + "…" : result;
}

std::string quoted(std::string_view text) {
    return "\"" + shown(text) + "\"";
}

bool isNumber(std::string_view text) {
    std::size_t at = text.starts_with('-') ? 1 : 0;
    const auto digits = [&] {
        const std::size_t begin = at;
        while (at < text.size() && isDigit(text[at])) {
            ++at;
        }
        return at - begin;
    };
    const bool zero = at < text.size() && text[at] == '0';
    const std::size_t whole = digits();
    if (whole == 0 || (zero && whole > 1)) {
        return false;
    }
    if (at < text.size() && text[at] == '.') {
        ++at;
        if (digits() == 0) {
            return false;
        }
    }
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        at += at + 1 < text.size() && (text[at + 1] == '+' || text[at + 1] == '-') ? 2 : 1;
        if (digits() == 0) {
            return false;
        }
    }
    return at == text.size();
}

void appendUTF8(std::string& text, std::uint32_t code) {
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0 | (code >> 6));
        text += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0 | (code >> 12));
        text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        text += static_cast<char>(0xF0 | (code >> 18));
        text += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (code & 0x3F));
    }
}

/// One reading, from the first byte to the last.
class Reader {
public:
    explicit Reader(std::string_view text) : m_text(text), m_places(text) {}

    TolerantReading read() {
        skipBlanks();
        if (atEnd()) {
            slip("content.empty", 0, "the file is empty; a list without sections is []");
        } else {
            m_reading.root = readValue();
            readAfterRoot();
        }
        auto& slips = m_reading.slips;
        std::stable_sort(slips.begin(), slips.end(),
                         [](const JSONSlip& one, const JSONSlip& other) { return one.offset < other.offset; });
        return std::move(m_reading);
    }

private:
    // Where the reader stands.
    [[nodiscard]] bool atEnd() const { return m_at >= m_text.size(); }
    [[nodiscard]] char next() const { return atEnd() ? '\0' : m_text[m_at]; }
    [[nodiscard]] bool sees(std::string_view word) const { return m_text.substr(m_at).starts_with(word); }
    [[nodiscard]] bool sees(char letter) const { return !atEnd() && m_text[m_at] == letter; }
    [[nodiscard]] std::string lineOf(std::size_t offset) const {
        return "line " + std::to_string(m_places.at(offset).line);
    }

    void slip(std::string_view rule, std::size_t offset, std::string what) {
        if (m_reading.slips.size() >= mostSlips) {
            return;
        }
        m_reading.slips.push_back({rule, offset, std::move(what)});
        if (m_reading.slips.size() == mostSlips) {
            m_reading.slips.push_back({"content.syntax", m_at, "there is more; mend these first"});
            m_text = m_text.substr(0, std::min(m_at, m_text.size())); // every part ends here
        }
    }
    void advance(std::size_t bytes = 1) { m_at = std::min(m_at + bytes, m_text.size()); }

    /// Also skips what has no place between two parts.
    void skipBlanks() {
        while (!atEnd()) {
            if (isBlank(next())) {
                advance();
            } else if (!skipComment() && !skipInvisible()) {
                return;
            }
        }
    }

    bool skipComment() {
        const bool isLine = sees("//") || sees('#');
        const bool isBlock = sees("/*");
        if (!isLine && !isBlock) {
            return false;
        }
        slip("content.comment", m_at, "a content file has no comments; take this one out");
        const std::size_t end = atEnd() ? npos : m_text.find(isLine ? "\n" : "*/", m_at);
        m_at = end == npos ? m_text.size() : end + (isLine ? 1 : 2);
        return true;
    }

    bool skipInvisible() {
        for (const auto& [bytes, name] : invisible) {
            if (sees(bytes)) {
                slip("content.syntax", m_at,
                     std::string("an invisible character stands here, ") + name + "; delete it");
                advance(bytes.size());
                return true;
            }
        }
        return false;
    }

    // Values.

    /// Something stands there.
    TolerantValue readValue() {
        TolerantValue value;
        value.offset = m_at;
        if (sees('{') || sees('[')) {
            readContainer(value);
        } else if (sees('"')) {
            value.kind = JSONKind::string;
            value.text = readText();
        } else if (const WrongQuote* quote = wrongQuote()) {
            value.kind = JSONKind::string;
            value.text = readWronglyQuoted(*quote);
        } else if (isDigit(next()) || sees('-') || sees('+') || sees('.')) {
            value.kind = JSONKind::number;
            value.text = readNumber();
        } else {
            readWord(value);
        }
        return value;
    }

    void readContainer(TolerantValue& value) {
        if (m_open.size() == greatestDepth) {
            slip("content.bracket", m_at, "brackets are nested more than 512 deep");
            m_text = m_text.substr(0, std::min(m_at, m_text.size()));
            return;
        }
        const bool isObject = sees('{');
        value.kind = isObject ? JSONKind::object : JSONKind::array;
        m_open.push_back(m_at++);
        if (isObject) {
            readMembers(value);
        } else {
            readElements(value);
        }
        m_open.pop_back();
    }

    void readElements(TolerantValue& array) {
        bool mayEnd = true; // no comma came last
        std::size_t comma = 0;
        for (skipBlanks(); !isClosed(']', mayEnd, comma); skipBlanks()) {
            if (sees(',')) {
                tellComma();
                continue;
            }
            array.elements.push_back(readValue());
            skipBlanks();
            if (sees(':')) {
                slip("content.bracket", array.elements.back().offset,
                     "a key with its value stands in { }, and this one stands in [ ]");
                advance();
                array.elements.pop_back();
                mayEnd = true;
                continue;
            }
            mayEnd = !readComma(']', comma);
        }
    }

    void readMembers(TolerantValue& object) {
        bool mayEnd = true;
        std::size_t comma = 0;
        for (skipBlanks(); !isClosed('}', mayEnd, comma); skipBlanks()) {
            if (sees(',')) {
                tellComma();
                continue;
            }
            if (sees('{') && m_open.size() > 1) {
                slip("content.bracket", m_open.back(),
                     "this { is not closed before the next one opens in " + lineOf(m_at) + "; write } before that");
                return;
            }
            if (!readMember(object)) {
                continue;
            }
            mayEnd = !readComma('}', comma);
        }
    }

    /// False when only a bracket stood there that belongs to nothing.
    bool readMember(TolerantValue& object) {
        const std::size_t begin = m_at;
        TolerantValue key = readKey();
        skipBlanks();
        if (sees(':')) {
            advance();
        } else if (sees('=')) {
            slip("content.syntax", m_at, "write : between a key and its value, not =");
            advance();
            advance(sees('>') ? 1 : 0);
        } else if (!atEnd()) {
            slip("content.syntax", begin, "after the key " + quoted(key.text) + " a : and a value are expected");
            if (sees(',') || sees('}') || sees(']')) {
                return true;
            }
        }
        skipBlanks();
        if (atEnd() || sees(',') || sees('}') || sees(']')) {
            slip("content.syntax", begin, "the key " + quoted(key.text) + " has no value");
            return true;
        }
        object.keys.emplace_back(key.offset, std::move(key.text));
        object.elements.push_back(readValue());
        return m_at > begin;
    }

    TolerantValue readKey() {
        const std::size_t begin = m_at;
        if (sees('"') || wrongQuote() != nullptr) {
            return readValue();
        }
        if (sees('{') || sees('[') || sees(':') || sees(';') || sees('=')) {
            slip("content.syntax", begin, "a key in quotes is expected here, such as \"title\"");
            return sees(':') || sees('=') ? TolerantValue{JSONKind::string, begin} : readValue();
        }
        TolerantValue key{JSONKind::string, begin};
        key.text = readBare();
        slip("content.quotes", begin, "a key stands in quotes: " + quoted(key.text));
        return key;
    }

    // What stands between values.

    void tellComma() {
        slip("content.comma", m_at, "one comma too many");
        advance();
    }

    /// True for a comma, also one that should stand there; false where the list ends.
    bool readComma(char closing, std::size_t& comma) {
        const std::size_t end = lastEnd();
        skipBlanks();
        comma = m_at;
        if (m_text.substr(end).starts_with(',')) { // of a list inside that was given up
            return true;
        }
        if (sees(',')) {
            advance();
            return true;
        }
        if (sees(';')) {
            slip("content.comma", m_at, "write , between two parts, not ;");
            advance();
            return true;
        }
        if (atEnd() || sees(closing) || sees('}') || sees(']')) {
            return false;
        }
        const bool opensInObject = closing == '}' && sees('{'); // then it is a brace that is missing
        if (!opensInObject) {
            slip("content.comma", end, "a comma is missing after this");
        }
        return false;
    }

    /// The last byte of what was read last, blanks left out.
    [[nodiscard]] std::size_t lastEnd() const {
        std::size_t end = m_at;
        while (end > 0 && isBlank(m_text[end - 1])) {
            --end;
        }
        std::size_t begin = end > 0 ? end - 1 : 0;
        while (begin > 0 && (static_cast<unsigned char>(m_text[begin]) & 0xC0) == 0x80) {
            --begin;
        }
        return begin;
    }

    /// Whether the innermost container ends here: by its own bracket, which is read, by that of one around it, or by
    /// the end of the text.
    bool isClosed(char closing, bool mayEnd, std::size_t comma) {
        const char opening = closing == '}' ? '{' : '[';
        const char other = closing == '}' ? ']' : '}';
        if (atEnd()) {
            tellUnclosed();
            return true;
        }
        if (!sees(closing) && !sees(other)) {
            return false;
        }
        if (!mayEnd) {
            slip("content.comma", comma, "one comma too many: nothing follows it");
        }
        if (sees(closing)) {
            advance();
            return true;
        }
        const bool closesOuter = std::any_of(m_open.begin(), m_open.end() - 1,
                                             [&](std::size_t offset) { return m_text[offset] != opening; });
        const std::string bracket(1, opening);
        slip("content.bracket", closesOuter ? m_open.back() : m_at,
             closesOuter ? "this " + bracket + " is not closed before the " + std::string(1, other) + " in " +
                               lineOf(m_at) + "; write " + std::string(1, closing) + " before that"
                         : "write " + std::string(1, closing) + " here: the " + bracket + " that it closes stands in " +
                               lineOf(m_open.back()));
        advance(closesOuter ? 0 : 1);
        return true;
    }

    /// Once, for the innermost of all that are open at the end.
    void tellUnclosed() {
        if (m_toldUnclosed || m_reading.slips.size() > mostSlips) {
            return;
        }
        m_toldUnclosed = true;
        const bool isObject = m_text[m_open.back()] == '{';
        const std::size_t around = m_open.size() - 1;
        std::string what = std::string("this ") + (isObject ? "{" : "[") + " is never closed; write " +
                           (isObject ? "}" : "]") + " at the end of it";
        if (around > 0) {
            what += around == 1 ? ", and the bracket around it is open, too"
                                : ", and the " + std::to_string(around) + " brackets around it are open, too";
        }
        slip("content.bracket", m_open.back(), what);
    }

    void readAfterRoot() {
        skipBlanks();
        bool told = false;
        while (!atEnd()) {
            const std::size_t begin = m_at;
            if (sees(']') || sees('}')) {
                slip("content.bracket", m_at, std::string("this ") + next() + " closes nothing; take it out");
                advance();
            } else if (sees(',') || sees(':')) {
                slip("content.comma", m_at, std::string("the list has ended; take the ") + next() + " out");
                advance();
            } else {
                if (!told) {
                    slip("content.root", begin,
                         "the list that begins in " + lineOf(m_reading.root.offset) +
                             " has ended before this; a file holds one list, so move this into it");
                }
                told = true;
                static_cast<void>(readValue());
            }
            skipBlanks();
        }
    }

    // Texts.

    [[nodiscard]] const WrongQuote* wrongQuoteAt(std::size_t at) const {
        const auto found = std::find_if(wrongQuotes.begin(), wrongQuotes.end(), [&](const WrongQuote& quote) {
            return m_text.substr(at).starts_with(quote.mark);
        });
        return found == wrongQuotes.end() ? nullptr : &*found;
    }
    [[nodiscard]] const WrongQuote* wrongQuote() const { return wrongQuoteAt(m_at); }

    /// Whether what follows, blanks of the line aside, ends a text.
    [[nodiscard]] bool endsTextAt(std::size_t at) const {
        while (at < m_text.size() && (m_text[at] == ' ' || m_text[at] == '\t' || m_text[at] == '\r')) {
            ++at;
        }
        return at >= m_text.size() || std::string_view(",:}]\n;=").find(m_text[at]) != npos ||
               m_text.substr(at).starts_with("//") || m_text.substr(at).starts_with("/*");
    }

    /// Once a line.
    void tellWrongQuote(const WrongQuote& quote) {
        const int line = m_places.at(m_at).line;
        if (line != m_wrongQuoteLine) {
            slip("content.quotes", m_at, "write the straight quotes \" around a text, not " + std::string(quote.mark));
        }
        m_wrongQuoteLine = line;
    }

    std::string readWronglyQuoted(const WrongQuote& quote) {
        tellWrongQuote(quote);
        advance(quote.mark.size());
        const std::size_t begin = std::min(m_at, m_text.size());
        for (; m_at < m_text.size() && m_text[m_at] != '\n'; ++m_at) {
            for (const std::string_view end : quote.ends) {
                if (sees(end) && endsTextAt(m_at + end.size())) {
                    std::string text(m_text.substr(begin, m_at - begin));
                    advance(end.size());
                    return text;
                }
            }
        }
        return endAtLine(begin);
    }

    /// Of a text whose closing quote is missing: it goes to the end of the line, a last comma left out.
    std::string endAtLine(std::size_t begin) {
        std::size_t end = std::min(m_text.find('\n', begin), m_text.size());
        while (end > begin && isBlank(m_text[end - 1])) {
            --end;
        }
        end -= end > begin && m_text[end - 1] == ',' ? 1 : 0;
        m_at = end;
        return std::string(m_text.substr(begin, end - begin));
    }

    /// Whether the line break at `at`, inside a text, shows that its quote was forgotten: the next line begins like one
    /// of a file, and not like more of the text.
    [[nodiscard]] bool quoteIsForgotten(std::size_t at) const {
        const std::size_t begin = m_text.find_first_not_of(" \t\r\n", at);
        return begin == npos || std::string_view("\"{}[]").find(m_text[begin]) != npos;
    }

    /// Whether the quote at `at` is one of a text's own, that should have been written \". The next quote of the line
    /// must then end the text.
    [[nodiscard]] bool isInnerQuote(std::size_t at) const {
        if (endsTextAt(at + 1)) {
            return false;
        }
        const std::size_t line = std::min(m_text.find('\n', at), m_text.size());
        const std::size_t other = m_text.find_first_not_of(" \t", at + 1);
        if (other < line && std::string_view("\"{[").find(m_text[other]) != npos) {
            return false; // a comma is missing
        }
        const std::size_t later = m_text.find('"', at + 1);
        return later < line && !startsKey(at + 1);
    }

    /// Whether `title":` stands at `at`: the text before it has lost its closing quote.
    [[nodiscard]] bool startsKey(std::size_t at) const {
        while (at < m_text.size() && isLetter(m_text[at])) {
            ++at;
        }
        if (at >= m_text.size() || m_text[at] != '"') {
            return false;
        }
        const std::size_t colon = m_text.find_first_not_of(" \t", at + 1);
        return colon != npos && m_text[colon] == ':';
    }

    /// A quote stands there.
    std::string readText() {
        const std::size_t open = m_at++;
        std::string text;
        bool toldBreak = false;
        bool toldQuote = false;
        while (!atEnd()) {
            const char letter = next();
            if (letter == '"') {
                if (startsKey(m_at + 1) && !endsTextAt(m_at + 1)) {
                    return endBeforeKey(open);
                }
                if (!isInnerQuote(m_at)) {
                    advance();
                    return text;
                }
                if (!toldQuote) {
                    slip("content.quotes", m_at, "a quote inside a text is written \\\"");
                }
                toldQuote = true;
                text += letter;
                advance();
            } else if (letter == '\\') {
                readEscape(text);
            } else if (letter == '\n' && quoteIsForgotten(m_at)) {
                break;
            } else if (static_cast<unsigned char>(letter) < 0x20) {
                readControl(toldBreak);
                text += ' ';
            } else {
                text += letter;
                advance();
            }
        }
        if (m_reading.slips.size() <= mostSlips) {
            slip("content.quotes", open, "the closing quote \" of this text is missing");
            return endAtLine(open + 1);
        }
        return text;
    }

    /// `"Easy, "subtitle": …`: the key's opening quote is read as such.
    std::string endBeforeKey(std::size_t open) {
        slip("content.quotes", open, "the closing quote \" of this text is missing");
        std::size_t end = m_at;
        while (end > open + 1 && (isBlank(m_text[end - 1]) || m_text[end - 1] == ',')) {
            --end;
        }
        std::string text(m_text.substr(open + 1, end - open - 1));
        m_at = end;
        return text;
    }

    void readControl(bool& toldBreak) {
        const char letter = next();
        if (letter == '\n' || letter == '\r') {
            if (!toldBreak) {
                slip("content.text", m_at, "a text stands in one line; write \\n where its next line begins");
            }
            toldBreak = true;
        } else if (letter == '\t') {
            slip("content.text", m_at, "a tab stands inside a text; write a space, or \\t");
        } else {
            std::array<char, 8> code{};
            std::snprintf(code.data(), code.size(), "%04X", static_cast<unsigned>(letter));
            slip("content.text", m_at,
                 std::string("an invisible control character (") + code.data() + ") stands inside a text; delete it");
        }
        advance();
    }

    void readEscape(std::string& text) {
        constexpr std::string_view plain = "\"\\/bfnrt";
        constexpr std::string_view meant = "\"\\/\b\f\n\r\t";
        const std::size_t begin = m_at++;
        if (const std::size_t which = atEnd() ? npos : plain.find(next()); which != npos) {
            text += meant[which];
            advance();
        } else if (sees('u')) {
            readUnicode(begin, text);
        } else {
            slip("content.text", begin, "after a \\ stands one of \" \\ / n t; a \\ itself is written \\\\");
            text += '\\';
        }
    }

    std::optional<std::uint32_t> hexadecimalAt(std::size_t at) const {
        std::uint32_t code = 0;
        for (std::size_t i = at; i < at + 4; ++i) {
            const char letter = i < m_text.size() ? m_text[i] : '\0';
            const std::size_t digit = std::string_view("0123456789abcdefABCDEF").find(letter);
            if (letter == '\0' || digit == npos) {
                return std::nullopt;
            }
            code = code * 16 + static_cast<std::uint32_t>(digit < 16 ? digit : digit - 6);
        }
        return code;
    }

    /// "\uD83D\uDE00" is one character in two halves.
    void readUnicode(std::size_t begin, std::string& text) {
        const std::optional<std::uint32_t> code = hexadecimalAt(begin + 2);
        if (!code) {
            slip("content.text", begin, "after \\u stand four digits from 0 to 9 and a to f");
            advance();
            return;
        }
        m_at = begin + 6;
        const bool isFirst = *code >= 0xD800 && *code < 0xDC00;
        const bool isSecond = *code >= 0xDC00 && *code < 0xE000;
        const std::optional<std::uint32_t> second = isFirst && sees("\\u") ? hexadecimalAt(m_at + 2) : std::nullopt;
        if (isFirst && second && *second >= 0xDC00 && *second < 0xE000) {
            advance(6);
            appendUTF8(text, 0x10000 + ((*code - 0xD800) << 10) + (*second - 0xDC00));
        } else if (isFirst || isSecond) {
            slip("content.text", begin,
                 std::string(m_text.substr(begin, 6)) +
                     " is half of a character (a lone surrogate); write the character itself");
            text += "\xEF\xBF\xBD";
        } else {
            appendUTF8(text, *code);
        }
    }

    // Numbers and words.

    std::string readNumber() {
        const std::size_t begin = m_at;
        while (!atEnd() && (isDigit(next()) || isLetter(next()) || sees('-') || sees('+') || sees('.'))) {
            advance();
        }
        std::string number(m_text.substr(begin, m_at - begin));
        if (!isNumber(number)) {
            slip("content.syntax", begin, quoted(number) + " is no number; a text stands in quotes");
        }
        return number;
    }

    struct KnownWord {
        std::string_view word;
        JSONKind kind;
        bool flag;
        std::string_view meant;
    };

    static const KnownWord* knownWord(std::string_view written) {
        static constexpr std::array<KnownWord, 9> words{{{"true", JSONKind::boolean, true, "true"},
                                                         {"yes", JSONKind::boolean, true, "true"},
                                                         {"on", JSONKind::boolean, true, "true"},
                                                         {"false", JSONKind::boolean, false, "false"},
                                                         {"no", JSONKind::boolean, false, "false"},
                                                         {"off", JSONKind::boolean, false, "false"},
                                                         {"null", JSONKind::null, false, "null"},
                                                         {"none", JSONKind::null, false, "null"},
                                                         {"nil", JSONKind::null, false, "null"}}};
        std::string lower(written);
        std::transform(lower.begin(), lower.end(), lower.begin(), [](char letter) {
            return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
        });
        const auto found =
            std::find_if(words.begin(), words.end(), [&](const KnownWord& word) { return word.word == lower; });
        return found == words.end() ? nullptr : &*found;
    }

    /// Words without quotes, and a closing quote whose opening one is missing.
    std::string_view readBare() {
        const std::size_t begin = m_at;
        while (!atEnd() && std::string_view(",:;={}[]\"\n").find(next()) == npos && !sees("//") && !sees("/*")) {
            advance();
        }
        while (m_at > begin && isBlank(m_text[m_at - 1])) {
            --m_at;
        }
        const std::string_view written = m_text.substr(begin, m_at - begin);
        advance(sees('"') && endsTextAt(m_at + 1) ? 1 : 0);
        return written;
    }

    void readWord(TolerantValue& value) {
        const std::size_t begin = m_at;
        const std::string_view written = readBare();
        if (m_at == begin) { // : ; = where a value is expected
            slip("content.syntax", begin, quoted(m_text.substr(begin, 1)) + " has no place here");
            advance();
            return;
        }
        const KnownWord* known = knownWord(written);
        value.kind = known != nullptr ? known->kind : JSONKind::string;
        value.flag = known != nullptr && known->flag;
        value.text = written;
        if (known == nullptr) {
            slip("content.quotes", begin, "a text stands in quotes: " + quoted(written));
        } else if (known->meant != written) {
            slip("content.word", begin, "write " + std::string(known->meant) + ", not " + shown(written));
        }
    }

    std::string_view m_text;
    TextPlaces m_places;
    std::size_t m_at = 0;
    std::vector<std::size_t> m_open; // brackets, where they stand
    bool m_toldUnclosed = false;
    int m_wrongQuoteLine = 0; // the last one that was told
    TolerantReading m_reading;
};

} // namespace

TolerantReading readTolerantly(std::string_view text) {
    return Reader(text).read();
}

std::size_t firstInvalidUTF8(std::string_view text) {
    const auto byte = [&](std::size_t at) {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : static_cast<unsigned char>(0);
    };
    const auto continues = [&](std::size_t at) { return (byte(at) & 0xC0) == 0x80; };
    for (std::size_t at = 0; at < text.size();) {
        const unsigned char first = byte(at);
        const unsigned char second = byte(at + 1);
        if (first < 0x80) {
            at += 1;
        } else if (first >= 0xC2 && first < 0xE0 && continues(at + 1)) {
            at += 2;
        } else if ((first & 0xF0) == 0xE0 && continues(at + 1) && continues(at + 2) &&
                   !(first == 0xE0 && second < 0xA0) && !(first == 0xED && second >= 0xA0)) {
            at += 3;
        } else if (first >= 0xF0 && first < 0xF5 && continues(at + 1) && continues(at + 2) && continues(at + 3) &&
                   !(first == 0xF0 && second < 0x90) && !(first == 0xF4 && second >= 0x90)) {
            at += 4;
        } else {
            return at;
        }
    }
    return std::string_view::npos;
}
