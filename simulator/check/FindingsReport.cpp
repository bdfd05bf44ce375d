#include "simulator/check/FindingsReport.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/TextPlaces.h"
#include "simulator/check/Rules.h"

#include <boost/json.hpp>
#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <set>
#include <vector>

namespace {

namespace json = boost::json;

const char* nameOf(Severity severity) {
    return severity == Severity::error ? "error" : "warning";
}

std::size_t countOf(const Findings& findings, Severity severity) {
    return static_cast<std::size_t>(std::count_if(
        findings.begin(), findings.end(), [&](const Finding& finding) { return finding.severity == severity; }));
}

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// One character of a text and how many columns of a terminal it takes.
struct Glyph {
    std::string bytes;
    std::size_t columns = 1;
};

std::string escapedByte(unsigned code) {
    std::array<char, 12> text{};
    std::snprintf(text.data(), text.size(), "\\x%02X", code);
    return text.data();
}

/// Reads the character at `at`, and steps behind it; a byte that is no UTF-8 is one, too, with a negative code.
utf8proc_int32_t nextCharacter(std::string_view text, std::size_t& at) {
    utf8proc_int32_t code = -1;
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data() + at);
    const utf8proc_ssize_t length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - at), &code);
    at += length > 0 ? static_cast<std::size_t>(length) : 1;
    return code;
}

/// At most so many characters.
std::vector<Glyph> glyphsOf(std::string_view text, std::size_t most = std::string_view::npos) {
    std::vector<Glyph> glyphs;
    for (std::size_t at = 0; at < text.size() && glyphs.size() < most;) {
        const std::size_t begin = at;
        const utf8proc_int32_t code = nextCharacter(text, at);
        if (code < 0) {
            glyphs.push_back({"\xEF\xBF\xBD", 1});
        } else if (code == '\t') {
            glyphs.push_back({" ", 1});
        } else if (code < 0x20 || (code >= 0x7F && code < 0xA0)) {
            glyphs.push_back({escapedByte(static_cast<unsigned>(code)), 4});
        } else {
            glyphs.push_back({std::string(text.substr(begin, at - begin)),
                              static_cast<std::size_t>(std::max(utf8proc_charwidth(code), 0))});
        }
    }
    return glyphs;
}

/// The lines of the file that was asked for last.
class SourceLines {
public:
    /// Empty when there is no such line.
    std::string_view lineOf(const std::string& path, int line) {
        if (path != m_path) {
            m_path = path;
            const Result<std::string> text = readWholeFile(path);
            m_text = text ? text.value() : "";
            constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // counts for nothing in a place
            m_places.emplace(std::string_view(m_text).substr(m_text.starts_with(byteOrderMark) ? 3 : 0));
        }
        return m_places->lineText(line);
    }

private:
    std::string m_path;
    std::string m_text;
    std::optional<TextPlaces> m_places;
};

class TextWriter {
public:
    explicit TextWriter(const TextStyle& style) : m_style(style) {}

    std::string write(const Findings& findings, std::size_t checkedFiles) {
        for (const Finding& finding : findings) {
            writeHead(finding);
            writeExcerpt(finding);
        }
        writeCounts(findings, checkedFiles);
        return std::move(m_text);
    }

private:
    void paint(const char* code, const std::string& text) {
        m_text += m_style.colored ? "\x1B[" + std::string(code) + "m" + text + "\x1B[0m" : text;
    }

    void writeHead(const Finding& finding) {
        std::string place = printable(finding.path);
        if (finding.place) {
            place += ":" + std::to_string(finding.place->line) + ":" + std::to_string(finding.place->column);
        }
        paint("1", place.empty() ? "" : place + ": ");
        paint(finding.severity == Severity::error ? "1;31" : "1;33", std::string(nameOf(finding.severity)) + ": ");
        m_text += printable(finding.what);
        paint("2", finding.rule.empty() ? "" : " [" + finding.rule + "]");
        m_text += '\n';
    }

    /// The part of the line around the place that the terminal has room for, and a caret below the place.
    void writeExcerpt(const Finding& finding) {
        const std::string_view line = finding.place ? m_lines.lineOf(finding.path, finding.place->line) : "";
        if (line.empty()) {
            return;
        }
        const std::size_t room = std::max<std::size_t>(m_style.columns, 24) - 6; // the margin, "…" at both ends
        auto caret = static_cast<std::size_t>(finding.place->column - 1);
        std::size_t start = 0; // of what is looked at: little of a line that is a megabyte long
        for (; caret > room && start < line.size(); --caret) {
            static_cast<void>(nextCharacter(line, start));
        }
        const std::vector<Glyph> glyphs = glyphsOf(line.substr(start), 2 * room);
        if (caret > glyphs.size()) {
            return;
        }
        std::size_t begin = 0;
        while (columnsOf(glyphs, begin, caret) > room * 2 / 3) {
            ++begin;
        }
        std::size_t end = begin;
        while (end < glyphs.size() && columnsOf(glyphs, begin, end + 1) <= room) {
            ++end;
        }
        const bool isCut = start + begin > 0;
        m_text += std::string("  ") + (isCut ? "…" : "");
        for (std::size_t i = begin; i < end; ++i) {
            m_text += glyphs[i].bytes;
        }
        m_text += end < glyphs.size() ? "…\n" : "\n";
        m_text += std::string(2 + (isCut ? 1 : 0) + columnsOf(glyphs, begin, caret), ' ');
        paint("1;32", "^");
        m_text += '\n';
    }

    static std::size_t columnsOf(const std::vector<Glyph>& glyphs, std::size_t begin, std::size_t end) {
        std::size_t columns = 0;
        for (std::size_t i = begin; i < std::min(end, glyphs.size()); ++i) {
            columns += glyphs[i].columns;
        }
        return columns;
    }

    void writeCounts(const Findings& findings, std::size_t checkedFiles) {
        const std::string where = " in " + counted(checkedFiles, "file");
        if (findings.empty()) {
            m_text += "Nothing to mend" + where + ".\n";
            return;
        }
        m_text += counted(countOf(findings, Severity::error), "error") + ", " +
                  counted(countOf(findings, Severity::warning), "warning") + where + ".\n";
    }

    TextStyle m_style;
    SourceLines m_lines;
    std::string m_text;
};

std::string escapedXML(std::string_view text) {
    std::string result;
    for (const char letter : printableLines(text)) {
        switch (letter) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '"':
            result += "&quot;";
            break;
        case '\n':
            result += "&#10;";
            break;
        default:
            result += letter;
        }
    }
    return result;
}

std::size_t linesOf(const Finding& finding) {
    return static_cast<std::size_t>(finding.place ? finding.place->line : 0);
}

} // namespace

std::string printable(std::string_view text) {
    std::string result;
    for (const Glyph& glyph : glyphsOf(text)) {
        result += glyph.bytes;
    }
    return result;
}

std::string printableLines(std::string_view text) {
    std::string result;
    std::size_t start = 0;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n', start)) {
        result += printable(text.substr(start, end - start)) + "\n";
        start = end + 1;
    }
    return result + printable(text.substr(start));
}

std::string quotedXML(std::string_view text) {
    return "\"" + escapedXML(text) + "\"";
}

std::string textReport(const Findings& findings, std::size_t checkedFiles, const TextStyle& style) {
    return TextWriter(style).write(findings, checkedFiles);
}

std::string jsonReport(const Findings& findings, std::size_t checkedFiles) {
    json::array list;
    for (const Finding& finding : findings) {
        list.push_back({{"path", printable(finding.path)},
                        {"line", linesOf(finding)},
                        {"column", finding.place ? finding.place->column : 0},
                        {"severity", nameOf(finding.severity)},
                        {"rule", finding.rule},
                        {"message", printable(finding.what)}});
    }
    return json::serialize(json::object{{"findings", std::move(list)},
                                        {"errors", countOf(findings, Severity::error)},
                                        {"warnings", countOf(findings, Severity::warning)},
                                        {"files", checkedFiles}}) +
           "\n";
}

std::string junitReport(const Findings& findings, std::size_t checkedFiles) {
    std::set<std::string> blamed;
    std::string cases;
    for (const Finding& finding : findings) {
        blamed.insert(finding.path);
        const std::string severity = nameOf(finding.severity);
        cases += "  <testcase classname=" + quotedXML(finding.path) +
                 " name=" + quotedXML(finding.rule + " in line " + std::to_string(linesOf(finding))) +
                 ">\n    <failure type=" + quotedXML(severity) + " message=" + quotedXML(finding.what) + ">" +
                 escapedXML(finding.describe()) + "</failure>\n  </testcase>\n";
    }
    const std::size_t clean = checkedFiles > blamed.size() ? checkedFiles - blamed.size() : 0;
    for (std::size_t i = 0; i < clean; ++i) {
        cases += "  <testcase classname=\"parlor check\" name=\"sound file " + std::to_string(i + 1) + "\"/>\n";
    }
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuite name=\"parlor check\" tests=\"" +
           std::to_string(findings.size() + clean) + "\" failures=\"" + std::to_string(findings.size()) + "\">\n" +
           cases + "</testsuite>\n";
}

std::string rulesText() {
    std::string text;
    for (const Rule& rule : rules()) {
        text.append(rule.id).append(" (").append(nameOf(rule.severity)).append(")\n  ").append(rule.meaning);
        text.append("\n  example: ").append(rule.example).append("\n");
    }
    return text;
}

std::string rulesPage() {
    std::string text =
        "# What the rules of `parlor check` mean\n\n"
        "Made by `parlor check --rules --format markdown`; a test holds the two equal.\n\n"
        "An error keeps a file, or something on the screen, from working. A warning is worth a look, and\n"
        "counts as an error with `--strict`. `--off RULE` leaves a rule out, and `--off a11y` all that\n"
        "begin with `a11y.`\n\n"
        "| rule | | what it means | for example |\n|---|---|---|---|\n";
    for (const Rule& rule : rules()) {
        text.append("| `").append(rule.id).append("` | ").append(nameOf(rule.severity)).append(" | ");
        text.append(rule.meaning).append(" | ");
        std::string example(rule.example);
        for (std::size_t at = example.find_first_of("|<"); at != std::string::npos;
             at = example.find_first_of("|<", at + 2)) {
            example.insert(at, "\\");
        }
        text.append(example).append(" |\n");
    }
    return text;
}
