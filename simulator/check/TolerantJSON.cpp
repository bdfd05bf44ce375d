#include "simulator/check/TolerantJSON.h"

#include "simulator/check/TolerantScalar.h"

#include <algorithm>

namespace {

constexpr std::size_t greatestDepth = 512; // that of JSONDocument

/// A bracket that was read and not yet closed.
struct Open {
    std::size_t offset = 0;
    char closing = ']';
    bool isWhole = true;                // its counterpart is there
    std::optional<std::size_t> comma{}; // that was read last, with nothing behind it yet
};

/// How many closing brackets of this kind a text lacks, as numbers tell; fewer than none when it has too many.
int missingIn(std::string_view text, char opening, char closing) {
    int missing = 0;
    bool isInText = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char letter = text[at];
        isInText = isInText != (letter == '"') && letter != '\n' && letter != '\r';
        at += isInText && letter == '\\' ? 1 : 0;
        missing += isInText ? 0 : (letter == opening ? 1 : 0) - (letter == closing ? 1 : 0);
    }
    return missing;
}

/// Reads objects and arrays, and guesses where a missing comma or bracket belongs.
class TolerantReader {
public:
    TolerantReader(std::string_view text, Slips& slips)
        : m_text(text, slips), m_slips(slips), m_missingBraces(missingIn(text, '{', '}')),
          m_missingBrackets(missingIn(text, '[', ']')) {}

    TolerantValue read() {
        m_text.skipBlanks();
        if (m_text.atEnd()) {
            m_slips.clear();
            m_text.tell("content.empty", 0, "the file is empty; a list without sections is []");
            return {};
        }
        TolerantValue root = readValue();
        m_text.skipBlanks();
        if (root.kind == JSONKind::array || root.kind == JSONKind::object) {
            readAfterRoot(root);
        } else if (!m_text.atEnd() || !m_slips.empty()) {
            m_slips.clear(); // of a letter or a table nobody wants to know where its commas are missing
            m_text.tell("content.root", root.offset, "this is no list: a list begins with [");
        }
        return root;
    }

private:
    /// Sections that follow are read as part of the list.
    void readAfterRoot(TolerantValue& root) {
        const bool lacksBracket = root.kind == JSONKind::object && m_text.seesOneOf(",{");
        if (lacksBracket) {
            m_text.tell("content.root", root.offset, "write [ before this, and ] at the end of the list");
            root = {JSONKind::array, root.offset, "", false, true, {root}};
        }
        for (bool wasTold = lacksBracket; !m_text.atEnd(); m_text.skipBlanks()) {
            if (!m_text.seesOneOf("]},:;")) {
                readMore(root, std::exchange(wasTold, true));
            } else if (lacksBracket) {
                m_text.advance();
            } else {
                skipSuperfluous();
            }
        }
    }

    void readMore(TolerantValue& root, bool wasTold) {
        const bool isPart = m_text.seesOneOf("[{");
        if (!wasTold) {
            m_text.tell("content.root", m_text.at(),
                        "the list that begins in " + m_text.lineOf(root.offset) + " has ended before this; " +
                            (isPart ? "a file holds one list, so move this into it" : "take out what follows"));
        }
        if (!isPart) { // a greeting, or another such text
            return m_text.moveTo(std::string_view::npos);
        }
        TolerantValue more = readValue();
        if (more.kind == JSONKind::object) {
            more.elements = {more};
        }
        std::move(more.elements.begin(), more.elements.end(), std::back_inserter(root.elements));
    }

    void skipSuperfluous() {
        const bool isBracket = m_text.seesOneOf("]}");
        m_text.tell(isBracket ? "content.bracket" : "content.comma", m_text.at(),
                    isBracket ? std::string("this ") + m_text.next() + " closes nothing; take it out"
                              : std::string("the list has ended; take the ") + m_text.next() + " out");
        m_text.advance();
    }

    TolerantValue readValue() {
        if (!m_text.seesOneOf("[{")) {
            return readScalar(m_text);
        }
        const bool isObject = m_text.sees("{");
        TolerantValue value{isObject ? JSONKind::object : JSONKind::array, m_text.at()};
        if (m_open.size() == greatestDepth) {
            m_text.tell("content.bracket", m_text.at(), "brackets are nested more than 512 deep");
            m_text.moveTo(std::string_view::npos);
            m_toldEnd = true;
            return value;
        }
        m_text.advance();
        readParts(value);
        return value;
    }

    /// What stands in a bracket, and its end. The bracket itself was read, or is missing.
    void readParts(TolerantValue& container) {
        const bool isObject = container.kind == JSONKind::object;
        m_open.push_back({container.offset, isObject ? '}' : ']'});
        for (m_text.skipBlanks(); !isClosed(); m_text.skipBlanks()) {
            m_open.back().comma.reset();
            if (m_text.sees(",")) {
                skipCommas();
                continue;
            }
            if (isObject) {
                readMember(container);
            } else {
                readElement(container);
            }
            readComma();
        }
        container.isWhole = m_open.back().isWhole;
        m_open.pop_back();
    }

    void readElement(TolerantValue& array) {
        const std::size_t begin = m_text.at();
        TolerantValue element = readValue();
        m_text.skipBlanks();
        if (m_text.sees(":") && element.kind == JSONKind::string) {
            m_text.tell("content.bracket", begin, "write { before this: a key and its value stand in { }");
            m_text.moveTo(begin);
            element = {JSONKind::object, begin};
            readParts(element);
        }
        array.elements.push_back(std::move(element));
    }

    /// A ] too many in the file: somewhere its [ is missing.
    [[nodiscard]] bool lacksOpening() const { return m_missingBrackets < 0 && m_missingBraces <= 0; }

    /// The { of an item stands where a key is expected: the line that begins the list of items is missing.
    void readMemberWithoutKey(TolerantValue& object) {
        m_text.tell("content.bracket", m_text.at(), "a key and [ are missing before this");
        ++m_missingBrackets;
        object.keys.emplace_back(m_text.at(), "");
        object.elements.push_back({JSONKind::array, m_text.at()});
        readParts(object.elements.back());
    }

    /// Reads what follows an object that is the first of a list without its [.
    void readOnAsArray(TolerantValue& value) {
        m_text.skipBlanks();
        const bool isMore = m_text.sees(",");
        const std::size_t next = m_text.skip(" \t\r\n", m_text.at() + (isMore ? 1 : 0));
        if (value.kind == JSONKind::object && lacksOpening() && m_text.isOneOf(next, isMore ? "{" : "]")) {
            m_text.tell("content.bracket", value.offset, "write [ before this: a list stands in [ ]");
            ++m_missingBrackets;
            value = {JSONKind::array, value.offset, "", false, true, {value}};
            m_text.moveTo(next);
            readParts(value);
        }
    }

    void readMember(TolerantValue& object) {
        if (m_text.sees("{") && lacksOpening()) {
            return readMemberWithoutKey(object);
        }
        TolerantValue key = readKey(m_text);
        m_text.skipBlanks();
        const bool isEqualSign = m_text.sees("=");
        const bool isColon = m_text.sees(":");
        if (isEqualSign) {
            m_text.tellHabit("content.syntax", m_text.at(), "write : between a key and its value, not =");
        }
        m_text.advance(m_text.sees("=>") ? 2 : isEqualSign || isColon ? 1 : 0);
        m_text.skipBlanks();
        if (m_text.atEnd() || m_text.seesOneOf(",}]")) {
            m_text.tell("content.syntax", key.offset, "the key " + quotedShort(key.text) + " has no value");
            return;
        }
        if (!isEqualSign && !isColon) {
            m_text.tell("content.syntax", key.offset,
                        "write : between the key " + quotedShort(key.text) + " and its value");
        }
        object.keys.emplace_back(key.offset, std::move(key.text));
        object.elements.push_back(readValue());
        readOnAsArray(object.elements.back());
    }

    // Commas.

    void skipCommas() {
        m_text.tell("content.comma", m_text.at(), "one comma too many");
        for (; m_text.sees(","); m_text.skipBlanks()) {
            m_text.advance();
        }
    }

    /// Behind a part, also behind one that was given up after its comma.
    void readComma() {
        const std::size_t last = m_text.endBefore(m_text.at()) - 1;
        m_text.skipBlanks();
        if (m_text.seesOneOf(",;")) {
            if (m_text.sees(";")) {
                m_text.tellHabit("content.comma", m_text.at(), "write , between two parts, not ;");
            }
            m_open.back().comma = m_text.at();
            m_text.advance();
        } else if (m_text.isOneOf(last, ",")) {
            m_open.back().comma = last;
        } else if (!m_text.atEnd() && !m_text.seesOneOf("}]") && !isLeftOpen()) {
            m_text.tell("content.comma", last, "a comma is missing after this");
        }
    }

    // Where a bracket ends.

    /// Whether the innermost ends here: by its own counterpart, which is read, or because it has none.
    bool isClosed() {
        const Open& open = m_open.back();
        if (open.comma && m_text.seesOneOf("}]")) {
            m_text.tell("content.comma", *open.comma, "one comma too many: nothing follows it");
        }
        if (m_text.next() == open.closing) {
            m_text.advance();
            return true;
        }
        if (m_text.seesOneOf("}]")) {
            return isClosedByOther();
        }
        if (m_text.atEnd() || isLeftOpen()) {
            tellUnclosed();
            return true;
        }
        return false;
    }

    /// A bracket of the wrong kind stands there: one too many, that of one further out, or a mistaken one.
    bool isClosedByOther() {
        const Open& open = m_open.back();
        const char written = m_text.next();
        const bool isOneTooMany = missing(written) < 0;
        const bool closesOuter =
            std::any_of(m_open.begin(), m_open.end(), [written](const Open& each) { return each.closing == written; });
        if (!isOneTooMany && closesOuter) {
            tellUnclosed();
            return true;
        }
        missing(written) += 1;
        if (isOneTooMany && missing(open.closing) <= 0) {
            skipSuperfluous();
            return false;
        }
        missing(open.closing) -= 1;
        m_text.tell("content.bracket", m_text.at(),
                    std::string("write ") + open.closing + " here, not " + written + ": what it closes began in " +
                        m_text.lineOf(open.offset));
        m_text.advance();
        return true;
    }

    int& missing(char closing) { return closing == '}' ? m_missingBraces : m_missingBrackets; }

    /// Whether the { there belongs further out: no key begins with it, and where a ] is missing, an element is
    /// indented.
    [[nodiscard]] bool isLeftOpen() const {
        const std::size_t at = m_text.at();
        const Open& open = m_open.back();
        if (!m_text.sees("{") || m_open.size() == 1 || open.closing == '}') {
            return m_text.sees("{") && m_open.size() > 1 && !lacksOpening();
        }
        const std::size_t indentation = m_text.indentation(open.offset);
        return m_missingBrackets > 0 && indentation > 0 && m_text.beginsLine(at) &&
               m_text.indentation(at) <= indentation;
    }

    /// Of all that are open when the text ends, the innermost is told.
    void tellUnclosed() {
        Open& open = m_open.back();
        open.isWhole = false;
        missing(open.closing) -= 1;
        if (std::exchange(m_toldEnd, m_text.atEnd())) {
            return;
        }
        std::string closing(1, open.closing);
        for (auto outer = m_open.rbegin() + 1; m_text.atEnd() && outer != m_open.rend(); ++outer) {
            closing += outer->closing;
        }
        constexpr std::size_t most = 12; // that can be counted at a glance
        const std::string whatIsMissing =
            closing.size() > most ? "the " + std::to_string(closing.size()) + " brackets that are missing" : closing;
        m_text.tell("content.bracket", open.offset,
                    std::string("this ") + (open.closing == '}' ? '{' : '[') + " is not closed; write " +
                        whatIsMissing + " " + (closing.size() > 1 ? "at the end of the file" : likelyEnd(open)));
    }

    /// Where the bracket was meant to be closed: behind the last line that is indented as a part of it, or has the next
    /// of its keys.
    [[nodiscard]] std::string likelyEnd(const Open& open) const {
        const std::size_t own = m_text.indentation(open.offset);
        const std::size_t here = m_text.at();
        std::size_t line = m_text.nextLine(open.offset);
        while (line < here && m_text.indentation(line) + (m_text.isOneOf(line, "}]\"") ? 1 : 0) > own) {
            line = m_text.nextLine(line);
        }
        const std::size_t last = m_text.endBefore(line) - 1;
        if (line <= here && !m_text.isEnd(line) && !m_text.isOneOf(last, "[{:")) {
            return (m_text.isOneOf(last, ",") ? "before the comma that ends " : "at the end of ") + m_text.lineOf(last);
        }
        return m_text.atEnd() ? "at the end of the file"
                              : std::string("before the ") + m_text.next() + " in " + m_text.lineOf(here);
    }

    TextCursor m_text;
    Slips& m_slips;
    int m_missingBraces;
    int m_missingBrackets;
    std::vector<Open> m_open;
    bool m_toldEnd = false;
};

} // namespace

TolerantValue readTolerantly(std::string_view text, Slips& slips) {
    return TolerantReader(text, slips).read();
}
