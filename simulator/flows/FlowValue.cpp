#include "simulator/flows/FlowValue.h"

#include "platform/foundation/Nearest.h"

#include <algorithm>
#include <charconv>

std::string FlowValue::text() const {
    if (!isText()) {
        complain("a text is expected here");
    }
    return m_node->text;
}

std::string FlowValue::name() const {
    if (isText() && m_node->text.empty()) {
        complain("this text must not be empty");
    }
    return text();
}

std::string FlowValue::word(const std::vector<std::string>& words) const {
    const std::string found = text();
    if (isText() && std::find(words.begin(), words.end(), found) == words.end()) {
        std::string all;
        for (const std::string& word : words) {
            all += (all.empty() ? "" : ", ") + word;
        }
        complain("'" + found + "' is none of " + all + suggestion(found, words));
    }
    return found;
}

int FlowValue::count() const {
    int number = 0;
    const std::string& digits = m_node->text;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (!isText() || digits.empty() || error != std::errc() || end != digits.data() + digits.size() || number < 0) {
        complain("a whole number, 0 or above, is expected here");
        return 0;
    }
    return number;
}

std::vector<FlowValue> FlowValue::list() const {
    if (!isList()) {
        complain("a list is expected here");
    }
    std::vector<FlowValue> values;
    for (const FlowNode& item : m_node->items) {
        values.emplace_back(item, *m_problems);
    }
    return values;
}

std::vector<std::string> FlowValue::texts() const {
    if (isText()) {
        return {text()};
    }
    std::vector<std::string> result;
    for (const FlowValue& value : list()) {
        result.push_back(value.text());
    }
    return result;
}

std::optional<FlowValue> FlowValue::find(std::string_view key) const {
    for (const FlowEntry& entry : m_node->entries) {
        if (entry.key.text == key) {
            return FlowValue(entry.value, *m_problems);
        }
    }
    return std::nullopt;
}

std::string FlowValue::requiredText(std::string_view key) const {
    const std::optional<FlowValue> value = find(key);
    if (!value) {
        complain("'" + std::string(key) + "' is missing here");
        return "";
    }
    return value->name();
}

void FlowValue::allowOnly(std::initializer_list<const char*> keys) const {
    const std::vector<std::string> known(keys.begin(), keys.end());
    if (!isMap()) {
        complain("a map is expected here");
    }
    for (const FlowEntry& entry : m_node->entries) {
        if (std::find(known.begin(), known.end(), entry.key.text) == known.end()) {
            m_problems->add(entry.key, "unknown key '" + entry.key.text + "'" + suggestion(entry.key.text, known));
        }
    }
}

void FlowValue::expectNothing() const {
    if (!isNothing()) {
        complain("this command takes no value");
    }
}
