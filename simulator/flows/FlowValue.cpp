#include "simulator/flows/FlowValue.h"

#include "platform/foundation/Nearest.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {

/// Reads a coordinate and goes on to what follows it; not a finite number when there is none.
double takeCoordinate(const char*& text) {
    char* end = nullptr;
    const double number = std::strtod(text, &end);
    const bool isNumber = std::exchange(text, end) != end;
    return isNumber ? number : NAN;
}

bool takeCharacter(const char*& text, char character) {
    const bool isThere = *text == character;
    text += isThere ? 1 : 0;
    return isThere;
}

} // namespace

CGPoint FlowPoint::in(CGSize window) const {
    return relative ? CGPoint{window.width * x / 100, window.height * y / 100} : CGPoint{x, y};
}

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

Selector FlowValue::selectorAmongKeys() const {
    Selector selector{find("text", &FlowValue::name), find("id", &FlowValue::name), find("index", &FlowValue::count)};
    if (!selector.text && !selector.id) {
        complain("'text' or 'id' must say which element is meant");
    }
    return selector;
}

Selector FlowValue::selector() const {
    if (!isMap()) {
        return {name(), std::nullopt, std::nullopt};
    }
    allowOnly({"text", "id", "index"});
    return selectorAmongKeys();
}

FlowPoint FlowValue::point() const {
    const std::string written = text();
    const char* rest = written.c_str();
    const double x = takeCoordinate(rest);
    const bool relative = takeCharacter(rest, '%');
    const bool hasComma = takeCharacter(rest, ',');
    const double y = takeCoordinate(rest);
    const bool isWhole = takeCharacter(rest, '%') == relative && *rest == '\0';
    if (isText() && !(hasComma && isWhole && std::isfinite(x) && std::isfinite(y))) {
        complain("a point is written \"120,40\" or \"50%,80%\"");
    }
    return {x, y, relative};
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
            m_problems->push_back(
                {"unknown key '" + entry.key.text + "'" + suggestion(entry.key.text, known), entry.key.place});
        }
    }
}

void FlowValue::expectNothing() const {
    if (!isNothing()) {
        complain("this command takes no value");
    }
}

void FlowValue::expectNothingBut(const char* key) const {
    if (!isNothing()) {
        allowOnly({key});
    }
}
