#include "platform/foundation/JSONDocument.h"

/// Lines up what the reader tells as nodes.
class JSONDocument::Builder : public JSONVisitor {
public:
    explicit Builder(std::vector<JSONNode>& nodes) : m_nodes(nodes) {}

    void key(std::string_view name) override { value({JSONKind::string, name}); }

    void value(const JSONToken& token) override {
        JSONNode& node = m_nodes.emplace_back();
        node.kind = token.kind;
        if (token.kind == JSONKind::string) {
            node.text = token.text.data();
            node.count = static_cast<std::uint32_t>(token.text.size());
        } else if (token.kind == JSONKind::array || token.kind == JSONKind::object) {
            m_open.push_back(m_nodes.size() - 1);
        } else {
            node.number = token.number;
        }
    }

    void end(std::size_t count) override {
        JSONNode& container = m_nodes[m_open.back()];
        container.count = static_cast<std::uint32_t>(count);
        container.nodes = m_nodes.size() - m_open.back();
        m_open.pop_back();
    }

private:
    std::vector<JSONNode>& m_nodes;
    std::vector<std::size_t> m_open;
};

JSONDocument::JSONDocument(std::string text)
    : m_text(std::make_unique<const std::string>(std::move(text))), m_reader(*m_text) {}

Result<JSONDocument> JSONDocument::parse(std::string text) {
    JSONDocument document(std::move(text));
    Builder builder(document.m_nodes);
    if (const std::optional<Failure> failure = document.m_reader.read(builder)) {
        return *failure;
    }
    return document;
}

TextPlace JSONDocument::placeOfKey(const JSONValue::Member& member) const {
    return placeOf(member.value.m_node - 1); // its node stands before that of its value
}

TextPlace JSONDocument::placeOf(const JSONNode* node) const {
    return m_reader.placeOf(static_cast<std::size_t>(node - m_nodes.data()));
}

std::optional<std::string_view> JSONValue::string() const {
    return is(JSONKind::string) ? std::optional(std::string_view(m_node->text, m_node->count)) : std::nullopt;
}

std::optional<bool> JSONValue::boolean() const {
    return is(JSONKind::boolean) ? std::optional(m_node->number != 0) : std::nullopt;
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
