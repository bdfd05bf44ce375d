#include "simulator/check/FindingsReport.h"

#include "platform/foundation/FileReading.h"
#include "simulator/check/Rules.h"
#include "simulator/check/TolerantJSON.h"

#include <boost/json.hpp>
#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdio>
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
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "\\x%02X", code);
    return text.data();
}

std::vector<Glyph> glyphsOf(std::string_view text) {
    std::vector<Glyph> glyphs;
    for (std::size_t at = 0; at < text.size();) {
        utf8proc_int32_t code = 0;
        const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data() + at);
        const utf8proc_ssize_t length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size() - at), &code);
        const bool isControl = length > 0 && (code < 0x20 || (code >= 0x7F && code < 0xA0));
        if (length <= 0) {
            glyphs.push_back({"\xEF\xBF\xBD", 1});
        } else if (code == '\t') {
            glyphs.push_back({" ", 1});
        } else if (isControl) {
            glyphs.push_back({escapedByte(static_cast<unsigned>(code)), 4});
        } else {
            glyphs.push_back({std::string(text.substr(at, static_cast<std::size_t>(length))),
                              static_cast<std::size_t>(std::max(utf8proc_charwidth(code), 0))});
        }
        at += length > 0 ? static_cast<std::size_t>(length) : 1;
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
            m_text = readWholeFile(path);
            m_starts = {0};
            for (std::size_t at = text().find('\n'); at != std::string::npos; at = text().find('\n', at + 1)) {
                m_starts.push_back(at + 1);
            }
        }
        const auto index = static_cast<std::size_t>(line - 1);
        if (index >= m_starts.size()) {
            return {};
        }
        std::string_view rest = std::string_view(text()).substr(m_starts[index]);
        rest = rest.substr(0, rest.find('\n'));
        return rest.substr(0, rest.find_last_not_of('\r') + 1);
    }

private:
    [[nodiscard]] const std::string& text() const {
        static const std::string none;
        return m_text ? m_text.value() : none;
    }

    std::string m_path;
    Result<std::string> m_text = Failure{"nothing was read"};
    std::vector<std::size_t> m_starts;
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
        constexpr std::size_t longest = 100000; // bytes; a place further on is told without its line
        const std::vector<Glyph> glyphs = glyphsOf(line.substr(0, longest));
        const auto caret = static_cast<std::size_t>(finding.place->column - 1);
        if (caret > glyphs.size()) {
            return;
        }
        const std::size_t room = std::max<std::size_t>(m_style.columns, 24) - 6; // the margin, "…" at both ends
        std::size_t begin = 0;
        while (columnsOf(glyphs, begin, caret) > room * 2 / 3) {
            ++begin;
        }
        std::size_t end = begin;
        while (end < glyphs.size() && columnsOf(glyphs, begin, end + 1) <= room) {
            ++end;
        }
        m_text += std::string("  ") + (begin > 0 ? "…" : "");
        for (std::size_t i = begin; i < end; ++i) {
            m_text += glyphs[i].bytes;
        }
        m_text += end < glyphs.size() ? "…\n" : "\n";
        m_text += std::string(2 + (begin > 0 ? 1 : 0) + columnsOf(glyphs, begin, caret), ' ');
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
        std::string meaning(rule.meaning);
        text.append(meaning).append(" | ");
        std::string example(rule.example);
        for (std::size_t at = example.find('|'); at != std::string::npos; at = example.find('|', at + 2)) {
            example.insert(at, "\\");
        }
        for (std::size_t at = example.find('<'); at != std::string::npos; at = example.find('<', at + 2)) {
            example.insert(at, "\\");
        }
        text.append(example).append(" |\n");
    }
    return text;
}
