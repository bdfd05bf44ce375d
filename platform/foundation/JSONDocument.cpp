#include "platform/foundation/JSONDocument.h"

#include "platform/foundation/TextPlaces.h"

#include <boost/json/basic_parser_impl.hpp>

#include <functional>
#include <limits>
#include <new>

namespace json = boost::json;

namespace {

constexpr std::size_t greatestDepth = 512;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The document's text, without a byte order mark.
std::string_view bodyOf(const std::string& text) {
    std::string_view body = text;
    if (body.substr(0, byteOrderMark.size()) == byteOrderMark) {
        body.remove_prefix(byteOrderMark.size());
    }
    return body;
}

constexpr std::string_view betweenTokens = " \t\r\n,:]}";

/// The end of the string, number or word that begins at `at`; of a container its opening bracket alone.
std::size_t endOfToken(std::string_view body, std::size_t at) {
    if (body[at] == '[' || body[at] == '{') {
        return at + 1;
    }
    if (body[at] != '"') {
        return body.find_first_of(betweenTokens, at);
    }
    ++at;
    while (body[at] != '"') {
        at += body[at] == '\\' ? 2 : 1;
    }
    return at + 1;
}

} // namespace

/// Receives the parser's events and lines them up as nodes. The names are the parser's.
class JSONDocument::Builder {
public:
    static constexpr std::size_t max_object_size = std::numeric_limits<std::uint32_t>::max();
    static constexpr std::size_t max_array_size = std::numeric_limits<std::uint32_t>::max();
    static constexpr std::size_t max_key_size = std::numeric_limits<std::uint32_t>::max();
    static constexpr std::size_t max_string_size = std::numeric_limits<std::uint32_t>::max();

    explicit Builder(JSONDocument& document) : m_document(document) {}

    bool on_document_begin(json::error_code&) { return true; }
    bool on_document_end(json::error_code&) { return true; }
    bool on_array_begin(json::error_code&) { return open(JSONKind::array); }
    bool on_array_end(std::size_t count, json::error_code&) { return close(count); }
    bool on_object_begin(json::error_code&) { return open(JSONKind::object); }
    bool on_object_end(std::size_t count, json::error_code&) { return close(count); }
    bool on_key_part(json::string_view part, std::size_t, json::error_code&) { return addPart(part); }
    bool on_key(json::string_view part, std::size_t, json::error_code&) { return addString(part); }
    bool on_string_part(json::string_view part, std::size_t, json::error_code&) { return addPart(part); }
    bool on_string(json::string_view part, std::size_t, json::error_code&) { return addString(part); }
    bool on_number_part(json::string_view, json::error_code&) { return true; }
    bool on_int64(std::int64_t number, json::string_view, json::error_code&) {
        return addNumber(static_cast<double>(number));
    }
    bool on_uint64(std::uint64_t number, json::string_view, json::error_code&) {
        return addNumber(static_cast<double>(number));
    }
    bool on_double(double number, json::string_view, json::error_code&) { return addNumber(number); }
    bool on_bool(bool value, json::error_code&) {
        add(JSONKind::boolean).count = value ? 1 : 0;
        return true;
    }
    bool on_null(json::error_code&) {
        add(JSONKind::null);
        return true;
    }
    bool on_comment_part(json::string_view, json::error_code&) { return true; }
    bool on_comment(json::string_view, json::error_code&) { return true; }

private:
    JSONNode& add(JSONKind kind) {
        JSONNode& node = m_document.m_nodes.emplace_back();
        node.kind = kind;
        return node;
    }

    bool addNumber(double number) {
        add(JSONKind::number).number = number;
        return true;
    }

    bool open(JSONKind kind) {
        m_open.push_back(m_document.m_nodes.size());
        add(kind);
        return true;
    }

    bool close(std::size_t count) {
        JSONNode& container = m_document.m_nodes[m_open.back()];
        container.count = static_cast<std::uint32_t>(count);
        container.nodes = m_document.m_nodes.size() - m_open.back();
        m_open.pop_back();
        return true;
    }

    bool addPart(std::string_view part) {
        m_parts += part;
        return true;
    }

    /// A string without escapes arrives as one piece of the source and stays there.
    bool addString(std::string_view lastPart) {
        JSONNode& node = add(JSONKind::string);
        const bool isWhole = m_parts.empty() && m_document.isInText(lastPart.data());
        if (!isWhole) {
            lastPart = m_document.m_unescaped.emplace_back(m_parts.append(lastPart));
            m_parts.clear();
        }
        node.text = lastPart.data();
        node.count = static_cast<std::uint32_t>(lastPart.size());
        return true;
    }

    JSONDocument& m_document;
    std::vector<std::size_t> m_open;
    std::string m_parts;
};

Result<JSONDocument> JSONDocument::parse(std::string text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
        return Failure{"the text is larger than 4 GB"};
    }
    try {
        return read(std::move(text));
    } catch (const std::bad_alloc&) {
        return Failure{"there is not enough memory for the text"};
    }
}

Result<JSONDocument> JSONDocument::read(std::string text) {
    JSONDocument document;
    document.m_text = std::make_unique<const std::string>(std::move(text));
    const std::string_view body = bodyOf(*document.m_text);
    document.m_nodes.reserve(body.size() / 12); // ordinary content has fewer; what is not used is never touched
    json::parse_options options;
    options.max_depth = greatestDepth;
    json::basic_parser<Builder> parser(options, document);
    json::error_code error;
    const std::size_t end = parser.write_some(false, body.data(), body.size(), error);
    if (!error && end < body.size()) {
        error = json::make_error_code(json::error::extra_data);
    }
    if (error) {
        return Failure{error.message(), TextPlaces(body).at(end)};
    }
    return document;
}

bool JSONDocument::isInText(const char* pointer) const {
    const std::less_equal<> notAfter;
    return notAfter(m_text->data(), pointer) && notAfter(pointer, m_text->data() + m_text->size());
}

TextPlace JSONDocument::placeOfKey(const JSONValue::Member& member) const {
    return placeOf(member.value.m_node - 1); // its node stands before that of its value
}

/// The text is sound, so that its tokens and the nodes follow each other in the same order.
TextPlace JSONDocument::placeOf(const JSONNode* node) const {
    const std::string_view body = bodyOf(*m_text);
    std::size_t at = body.find_first_not_of(betweenTokens);
    for (const JSONNode* passed = m_nodes.data(); passed != node; ++passed) {
        at = body.find_first_not_of(betweenTokens, endOfToken(body, at));
    }
    return TextPlaces(body).at(at);
}

std::optional<std::string_view> JSONValue::string() const {
    return is(JSONKind::string) ? std::optional(std::string_view(m_node->text, m_node->count)) : std::nullopt;
}

std::optional<bool> JSONValue::boolean() const {
    return is(JSONKind::boolean) ? std::optional(m_node->count != 0) : std::nullopt;
}

std::optional<double> JSONValue::number() const {
    return is(JSONKind::number) ? std::optional(m_node->number) : std::nullopt;
}

std::vector<JSONValue> JSONValue::elements() const {
    std::vector<JSONValue> elements;
    if (is(JSONKind::array)) {
        elements.reserve(m_node->count);
        for (const JSONNode* element = m_node + 1; element != m_node->next(); element = element->next()) {
            elements.push_back(JSONValue(element));
        }
    }
    return elements;
}

std::vector<JSONValue::Member> JSONValue::members() const {
    std::vector<Member> members;
    if (is(JSONKind::object)) {
        members.reserve(m_node->count);
        for (const JSONNode* key = m_node + 1; key != m_node->next(); key = (key + 1)->next()) {
            members.push_back({std::string_view(key->text, key->count), JSONValue(key + 1)});
        }
    }
    return members;
}

std::optional<JSONValue> JSONValue::find(std::string_view key) const {
    const JSONNode* found = nullptr;
    if (is(JSONKind::object)) {
        const JSONNode* end = m_node->next();
        for (const JSONNode* member = m_node + 1; member != end; member = (member + 1)->next()) {
            if (std::string_view(member->text, member->count) == key) {
                found = member + 1;
            }
        }
    }
    return found == nullptr ? std::nullopt : std::optional(JSONValue(found));
}
