#include "simulator/flows/FlowDocuments.h"

#include <yaml-cpp/yaml.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

namespace {

bool opensValue(std::string_view before) {
    const std::size_t last = before.find_last_not_of(' ');
    if (last == std::string_view::npos) {
        return true;
    }
    const bool spaced = last + 1 < before.size();
    const char mark = before[last];
    return mark == '[' || mark == '{' || mark == ',' || (spaced && (mark == '-' || mark == ':'));
}

/// The column after the quote that closes the one at `start`; npos when the line ends first.
std::size_t afterClosingQuote(std::string_view line, std::size_t start) {
    const char quote = line[start];
    for (std::size_t i = start + 1; i < line.size(); ++i) {
        if (quote == '"' && line[i] == '\\') {
            ++i;
        } else if (line[i] == quote) {
            if (quote == '"' || i + 1 == line.size() || line[i + 1] != '\'') {
                return i + 1;
            }
            ++i; // a doubled single quote stands for one
        }
    }
    return std::string_view::npos;
}

/// YAML lets a quoted text run on over the following lines; in a flow that is always a forgotten quote.
void checkQuotes(std::string_view line, int number, std::vector<Failure>& problems) {
    std::size_t i = 0;
    while (i < line.size()) {
        const bool quote = line[i] == '\'' || line[i] == '"';
        if (line[i] == '#' && (i == 0 || line[i - 1] == ' ')) {
            return;
        }
        if (!quote || !opensValue(line.substr(0, i))) {
            ++i;
            continue;
        }
        const std::size_t end = afterClosingQuote(line, i);
        if (end == std::string_view::npos) {
            problems.push_back({"this quote is not closed on its line", TextPlace{number, static_cast<int>(i) + 1}});
            return;
        }
        i = end;
    }
}

void checkLines(const std::string& text, std::vector<Failure>& problems) {
    std::istringstream lines(text);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        const std::size_t content = line.find_first_not_of(" \t\r");
        const std::size_t tab = line.find('\t');
        if (content != std::string::npos && tab < content) {
            problems.push_back({"tab used for indentation; use spaces", TextPlace{number, static_cast<int>(tab) + 1}});
        } else {
            checkQuotes(line, number, problems);
        }
    }
}

/// Copies one file's nodes. References (`*name`) make a file small and what it says endless, so both a node inside
/// itself and too many nodes are problems.
class Converter {
public:
    explicit Converter(std::vector<Failure>& problems) : m_problems(problems) {}

    FlowNode convert(const YAML::Node& node) {
        FlowNode result;
        result.place = {node.Mark().line + 1, node.Mark().column + 1};
        if (node.IsScalar()) {
            result.kind = FlowNode::Kind::text;
            result.text = node.Scalar();
        } else if (node.IsSequence() || node.IsMap()) {
            convertInside(node, result);
        }
        return result;
    }

private:
    static constexpr std::size_t mostNodes = 100'000;

    void convertInside(const YAML::Node& node, FlowNode& result) {
        const auto inItself = [&node](const YAML::Node* outer) { return outer->is(node); };
        if (std::any_of(m_open.begin(), m_open.end(), inItself)) {
            m_problems.push_back({"this refers to itself", result.place});
            return;
        }
        m_open.push_back(&node);
        if (node.IsMap()) {
            result.kind = FlowNode::Kind::map;
            convertEntries(node, result);
        } else {
            result.kind = FlowNode::Kind::list;
            convertItems(node, result);
        }
        m_open.pop_back();
    }

    /// Whether one more node may be read; complains of the first that may not.
    bool hasRoom(const FlowNode& place) {
        if (++m_nodes == mostNodes) {
            m_problems.push_back({"this is too much for one flow", place.place});
        }
        return m_nodes < mostNodes;
    }

    void convertItems(const YAML::Node& node, FlowNode& result) {
        for (const auto& item : node) {
            if (!hasRoom(result)) {
                return;
            }
            result.items.push_back(convert(item));
        }
    }

    void convertEntries(const YAML::Node& node, FlowNode& result) {
        std::set<std::string> seen;
        for (const auto& pair : node) {
            if (!hasRoom(result)) {
                return;
            }
            FlowEntry entry{convert(pair.first), convert(pair.second)};
            if (entry.key.kind != FlowNode::Kind::text) {
                m_problems.push_back({"a key must be a plain word", entry.key.place});
            } else if (!seen.insert(entry.key.text).second) {
                m_problems.push_back({"'" + entry.key.text + "' is written twice", entry.key.place});
            }
            if (entry.value.kind == FlowNode::Kind::nothing) { // YAML places what is not there one line too low
                entry.value.place = entry.key.place;
            }
            result.entries.push_back(std::move(entry));
        }
    }

    std::vector<Failure>& m_problems;
    std::vector<const YAML::Node*> m_open; // the nodes around the one that is being read
    std::size_t m_nodes = 0;
};

} // namespace

std::vector<FlowNode> readFlowDocuments(const std::string& text, std::vector<Failure>& problems) {
    constexpr std::size_t largest = 1'000'000; // bytes; the YAML library takes a hundred times as much memory
    std::vector<FlowNode> documents;
    if (text.size() > largest) {
        problems.push_back({"the flow is larger than 1 MB"});
        return documents;
    }
    checkLines(text, problems);
    if (problems.empty()) {
        try {
            Converter converter(problems);
            for (const YAML::Node& document : YAML::LoadAll(text)) {
                documents.push_back(converter.convert(document));
            }
        } catch (const YAML::Exception& error) {
            problems.push_back(
                {"not readable as YAML: " + error.msg, TextPlace{error.mark.line + 1, error.mark.column + 1}});
        }
    }
    if (!problems.empty()) {
        documents.clear();
    }
    return documents;
}
