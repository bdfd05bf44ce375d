#include "platform/foundation/JSONValue.h"

std::optional<std::string_view> JSONValue::string() const {
    if (!is(JSONKind::string)) {
        return std::nullopt;
    }
    return std::string_view(m_node->text, m_node->count);
}

std::optional<bool> JSONValue::boolean() const {
    if (!is(JSONKind::boolean)) {
        return std::nullopt;
    }
    return m_node->count != 0;
}

std::optional<double> JSONValue::number() const {
    if (!is(JSONKind::number)) {
        return std::nullopt;
    }
    return m_node->number;
}

JSONValue::Elements JSONValue::elements() const {
    if (!is(JSONKind::array)) {
        return {nullptr, nullptr, 0};
    }
    return {m_node + 1, m_node->next(), m_node->count};
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
