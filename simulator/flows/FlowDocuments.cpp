#include "simulator/flows/FlowDocuments.h"

#include "platform/foundation/Text.h"
#include "platform/foundation/TextPlaces.h"

#include <libfyaml.h>

#include <functional>
#include <memory>
#include <set>
#include <utility>

namespace {

using Diagnostics = std::unique_ptr<fy_diag, decltype(&fy_diag_destroy)>;
using Parser = std::unique_ptr<fy_parser, decltype(&fy_parser_destroy)>;

/// The library would write what it finds to standard error.
void ignoreOutput(fy_diag*, void*, const char*, std::size_t) {}

Diagnostics makeDiagnostics() {
    fy_diag_cfg settings{};
    fy_diag_cfg_default(&settings);
    settings.fp = nullptr;
    settings.output_fn = ignoreOutput;
    Diagnostics diagnostics(fy_diag_create(&settings), fy_diag_destroy);
    fy_diag_set_collect_errors(diagnostics.get(), true);
    return diagnostics;
}

Parser makeParser(std::string_view text, fy_diag* diagnostics) {
    fy_parse_cfg settings{};
    settings.flags = static_cast<fy_parse_cfg_flags>(FYPCF_COLLECT_DIAG | FYPCF_DEFAULT_VERSION_1_2);
    settings.diag = diagnostics;
    Parser parser(fy_parser_create(&settings), fy_parser_destroy);
    fy_parser_set_string(parser.get(), text.data(), text.size());
    return parser;
}

/// What the library tells, in the words of a flow's author.
struct Explanation {
    const char* part; // of the library's message
    const char* words;
    int columnsBack = 0; // from where the library looked to where the mistake is
};

Explanation explain(const std::string& message) {
    static constexpr const char* notClosed = "this quote is not closed on its line";
    static constexpr Explanation explanations[] = {
        {"tab character", "tab used for indentation; use spaces"},
        {"scalar without closing quote", notClosed, 1},
        {"indented single-quoted", notClosed},
        {"indented double-quoted", notClosed},
        {"trailing content after", "something stands here after the closing quote"},
        {"nested block mapping on the same line", "a text in which ': ' occurs must stand in quotes"},
        {"plain scalar cannot start", "a text that begins with this character must stand in quotes"},
        {"expected '-' indicator", "a command is expected here, begun with '- '"},
        {"did not find expected key", "a setting is expected here; a line '---' parts settings and commands"},
        {"invalid multiline plain key",
         "a command begins with '- ', below the one before it; is a blank missing here?"},
    };
    for (const Explanation& explanation : explanations) {
        if (message.find(explanation.part) != std::string::npos) {
            return explanation;
        }
    }
    return {"", ""};
}

/// Turns the library's events into nodes. It stops at the first thing that is no YAML.
class NodeReader {
public:
    NodeReader(std::string_view text, std::vector<Failure>& problems)
        : m_text(text), m_places(text), m_problems(problems), m_diagnostics(makeDiagnostics()),
          m_parser(makeParser(text, m_diagnostics.get())) {}

    std::vector<FlowNode> read() {
        std::vector<FlowNode> documents;
        while (advance()) {
            if (m_event->type == FYET_DOCUMENT_START && advance()) {
                documents.push_back(readNode());
            }
        }
        void* position = nullptr;
        if (const fy_diag_error* error = fy_diag_errors_iterate(m_diagnostics.get(), &position)) {
            m_problems = {problemOf(*error)}; // what was found before may be its consequence
        }
        return documents;
    }

private:
    static constexpr std::size_t deepest = 32;

    bool advance() {
        fy_parser* parser = m_parser.get();
        m_event = {m_isTooDeep ? nullptr : fy_parser_parse(parser),
                   [parser](fy_event* event) { fy_parser_event_free(parser, event); }};
        return m_event != nullptr;
    }

    FlowNode readNode() {
        FlowNode node;
        if (const fy_mark* mark = fy_event_start_mark(m_event.get())) { // none of what is not there
            node.place = {mark->line + 1, mark->column + 1};
        }
        refuseProperties(node.place);
        switch (m_event->type) {
        case FYET_SCALAR:
            readText(node);
            break;
        case FYET_SEQUENCE_START:
        case FYET_MAPPING_START:
            readInside(node);
            break;
        default:
            --node.place.column; // the library leaves the asterisk out
            complain("a reference (*name) cannot be used in a flow", node.place);
        }
        return node;
    }

    void readText(FlowNode& node) {
        fy_token* token = m_event->scalar.value;
        if (token == nullptr) {
            return;
        }
        std::size_t length = 0;
        const char* text = fy_token_get_text(token, &length);
        node.kind = FlowNode::Kind::text;
        node.text.assign(text == nullptr ? "" : text, length);
        const fy_scalar_style style = fy_token_scalar_style(token);
        if (style == FYSS_SINGLE_QUOTED || style == FYSS_DOUBLE_QUOTED) {
            --node.place.column; // the library tells where the text inside begins
        }
        m_last = fy_event_end_mark(m_event.get())->input_pos;
        if (style != FYSS_LITERAL && style != FYSS_FOLDED &&
            fy_event_end_mark(m_event.get())->line != fy_event_start_mark(m_event.get())->line) {
            complain("this text runs on into the next line; is a quote, a bracket or a '-' missing?", node.place);
        }
    }

    void readInside(FlowNode& node) {
        if (m_open.size() == deepest) {
            complain("this is nested too deeply", node.place);
            m_isTooDeep = true;
            return;
        }
        m_open.push_back(fy_event_get_node_style(m_event.get()) == FYNS_FLOW ? std::optional(node.place)
                                                                             : std::nullopt);
        m_last = fy_event_end_mark(m_event.get())->input_pos;
        if (m_event->type == FYET_MAPPING_START) {
            node.kind = FlowNode::Kind::map;
            readEntries(node);
        } else {
            node.kind = FlowNode::Kind::list;
            readItems(node);
        }
        if (m_event) { // else the text has ended, and an open bracket is told of
            m_open.pop_back();
        }
    }

    void readItems(FlowNode& node) {
        while (advance() && m_event->type != FYET_SEQUENCE_END) {
            node.items.push_back(readNode());
            if (node.items.back().kind == FlowNode::Kind::nothing) {
                node.items.back().place = m_places.at(m_text.find_first_not_of(" \r\n", m_last));
            }
        }
    }

    void readEntries(FlowNode& node) {
        std::set<std::string> seen;
        while (advance() && m_event->type != FYET_MAPPING_END) {
            FlowEntry entry{readNode(), {}};
            if (entry.key.kind != FlowNode::Kind::text) {
                complain("a key must be a plain word", entry.key.place);
            } else if (!seen.insert(entry.key.text).second) {
                complain("'" + entry.key.text + "' is written twice", entry.key.place);
            }
            if (!advance()) {
                return;
            }
            entry.value = readNode();
            if (entry.value.kind == FlowNode::Kind::nothing) {
                entry.value.place = entry.key.place;
            }
            node.entries.push_back(std::move(entry));
        }
    }

    void refuseProperties(TextPlace place) {
        if (fy_event_get_anchor_token(m_event.get()) != nullptr || fy_event_get_tag_token(m_event.get()) != nullptr) {
            complain("names (&name) and tags (!tag) cannot be used in a flow", place);
        }
    }

    /// With a bracket open, the end of the text and the next command are that bracket's mistake.
    Failure problemOf(const fy_diag_error& error) {
        const std::string message = error.msg;
        const TextPlace place{error.line, error.column};
        const bool isAtEnd = place >= m_places.at(m_text.find_last_not_of(" \r\n") + 1);
        const bool isNextCommand = message.find("block sequence in flow mode") != std::string::npos;
        for (auto open = m_open.rbegin(); (isAtEnd || isNextCommand) && open != m_open.rend(); ++open) {
            if (*open) {
                return {"this bracket is not closed", *open};
            }
        }
        const Explanation explanation = explain(message);
        const std::string words = explanation.words;
        return {words.empty() ? "not readable as YAML: " + message : words,
                TextPlace{place.line, place.column - explanation.columnsBack}};
    }

    void complain(const std::string& what, TextPlace place) { m_problems.push_back({what, place}); }

    std::string_view m_text;
    TextPlaces m_places;
    std::vector<Failure>& m_problems;
    Diagnostics m_diagnostics;
    Parser m_parser;
    std::unique_ptr<fy_event, std::function<void(fy_event*)>> m_event;
    std::vector<std::optional<TextPlace>> m_open; // the lists and maps around; those in brackets with their place
    std::size_t m_last = 0;                       // where what was read last ends
    bool m_isTooDeep = false;
};

/// The number of bytes before the first that is no UTF-8.
std::size_t validLength(std::string_view text) {
    std::size_t at = 0;
    for (std::size_t length = 1; at < text.size() && length <= 4; ++length) {
        if (isValidUTF8(text.substr(at, length))) {
            at += length;
            length = 0;
        }
    }
    return at;
}

/// What the YAML library would not tell, or read for ever (a directive).
std::optional<Failure> refusal(std::string_view text) {
    constexpr std::size_t largest = 1'000'000; // bytes
    if (text.size() > largest) {
        return Failure{"the flow is larger than 1 MB"};
    }
    const TextPlaces places(text);
    if (const std::size_t length = validLength(text); length < text.size()) {
        return Failure{"this is no UTF-8; save the file as UTF-8", places.at(length)};
    }
    if (const std::size_t at = text.find('\0'); at != std::string_view::npos) {
        return Failure{"a character that no text has", places.at(at)};
    }
    for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1)) {
        if (at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r') {
            return Failure{"a line of a flow cannot begin with '%'", places.at(at)};
        }
    }
    return std::nullopt;
}

} // namespace

std::vector<FlowNode> readFlowDocuments(std::string_view text, std::vector<Failure>& problems) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    if (std::optional<Failure> failure = refusal(text)) {
        problems.push_back(*std::move(failure));
        return {};
    }
    std::vector<FlowNode> documents = NodeReader(text, problems).read();
    return problems.empty() ? documents : std::vector<FlowNode>();
}
