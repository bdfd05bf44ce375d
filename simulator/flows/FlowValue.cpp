#include "simulator/flows/FlowValue.h"

#include "platform/foundation/Nearest.h"
#include "simulator/conversation/Device.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace fs = std::filesystem;

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

/// The number that a text is; -1 when it is none, or one too great.
int numberIn(const std::string& text) {
    int number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = !text.empty() && error == std::errc() && end == text.data() + text.size();
    return isWhole && number <= greatestNumber ? number : -1;
}

/// Replaces each ${NAME}; one that is not known stays, and is left in `unknown`.
std::string replaceNames(const std::string& text, const std::map<std::string, std::string>& env, std::string& unknown) {
    std::string result;
    std::size_t at = 0;
    for (std::size_t start = text.find("${"); start != std::string::npos; start = text.find("${", at)) {
        const std::size_t end = text.find('}', start);
        if (end == std::string::npos) {
            break;
        }
        const auto value = env.find(text.substr(start + 2, end - start - 2));
        if (value == env.end()) {
            unknown = text.substr(start + 2, end - start - 2);
        }
        result += text.substr(at, start - at);
        result += value == env.end() ? text.substr(start, end + 1 - start) : value->second;
        at = end + 1;
    }
    return result + text.substr(at);
}

/// Pictures stay in the folder that they are meant for.
std::string problemOfPictureName(const std::string& name) {
    for (const fs::path& part : fs::path(name)) {
        if (part == ".." || part.has_root_directory()) {
            return "a picture's name is a path inside its folder, without '..'";
        }
    }
    const std::string ending = ".png";
    const std::string stem = name.ends_with(ending) ? name.substr(0, name.size() - ending.size()) : name;
    const bool isNameless = fs::path(stem).filename().string().find_first_not_of('.') == std::string::npos;
    return isNameless ? "'" + name + "' has no name before its ending" : "";
}

std::vector<std::string> namesOf(const FlowKeys& keys) {
    std::vector<std::string> names;
    for (const FlowKey& key : keys) {
        names.emplace_back(key.name);
    }
    return names;
}

} // namespace

CGPoint FlowPoint::in(CGSize window) const {
    return relative ? CGPoint{window.width * x / 100, window.height * y / 100} : CGPoint{x, y};
}

std::string FlowReading::besideIt(const std::string& other) const {
    return (fs::path(file).parent_path() / other).string();
}

void FlowValue::complain(const std::string& what, Severity severity) const {
    m_reading->findings.push_back({severity, m_reading->file, m_node->place, what});
}

bool FlowValue::check(const std::vector<FlowForm>& forms, const FlowKeys& keys) const {
    if (isMap() && !keys.empty()) {
        return checkKeys(keys);
    }
    std::string expected;
    for (const FlowForm& form : forms) {
        if (isOf(form.type)) {
            return checkInside(form);
        }
        expected += (expected.empty() ? "" : " or ") + form.describe();
    }
    complain((expected.empty() ? "a map" : expected) + " is expected here");
    return false;
}

bool FlowValue::isOf(FlowType type) const {
    switch (type) {
    case FlowType::nothing:
        return isNothing();
    case FlowType::commands:
    case FlowType::points:
        return isList();
    case FlowType::texts:
        return isText() || isList();
    case FlowType::selector:
        return isText() || isMap();
    case FlowType::condition:
    case FlowType::values:
        return isMap();
    case FlowType::resources:
        return isMap() || isList();
    default:
        return isText();
    }
}

bool FlowValue::checkAll(FlowType type) const {
    bool isGood = true;
    for (const FlowValue& item : list()) {
        isGood = item.check({{type}}) && isGood;
    }
    return isGood;
}

bool FlowValue::checkKeys(const FlowKeys& keys) const {
    bool isGood = true;
    for (const FlowEntry& entry : m_node->entries) {
        const auto key =
            std::find_if(keys.begin(), keys.end(), [&](const FlowKey& known) { return entry.key.text == known.name; });
        if (key == keys.end()) {
            FlowValue(entry.key, *m_reading)
                .complain("unknown key '" + entry.key.text + "'" + suggestion(entry.key.text, namesOf(keys)));
        }
        isGood = key != keys.end() && FlowValue(entry.value, *m_reading).check({key->form}) && isGood;
    }
    for (const FlowKey& key : keys) {
        if (key.need == FlowNeed::required && !find(key.name)) {
            complain("'" + std::string(key.name) + "' is missing here");
            isGood = false;
        }
    }
    return isGood;
}

bool FlowValue::checkInside(const FlowForm& form) const {
    switch (form.type) {
    case FlowType::nothing:
    case FlowType::commands: // are read one by one
        return true;
    case FlowType::points:
        if (m_node->items.size() < 2) {
            complain("two points at least are needed here");
            return false;
        }
        return checkAll(FlowType::point);
    case FlowType::texts:
        return isList() ? checkAll(FlowType::text) : check({{FlowType::text}});
    case FlowType::values:
        return std::all_of(m_node->entries.begin(), m_node->entries.end(), [this](const FlowEntry& entry) {
            const FlowValue value(entry.value, *m_reading);
            return value.isNothing() || value.check({{FlowType::text}});
        });
    case FlowType::resources: {
        bool isGood = true;
        for (const FlowValue& item : list()) {
            isGood = item.check({}, resourceKeys()) && isGood;
        }
        return isGood;
    }
    case FlowType::condition:
        return checkKeys(conditionKeys());
    case FlowType::selector:
        if (isMap()) {
            return checkKeys(selectorKeys());
        }
        [[fallthrough]];
    default:
        const std::string problem = problemOfText(form);
        if (!problem.empty()) {
            complain(problem);
        }
        return problem.empty();
    }
}

std::string FlowValue::problemOfText(const FlowForm& form) const {
    std::string unknown;
    const std::string text = replaceNames(m_node->text, m_reading->env, unknown);
    if (!unknown.empty()) {
        std::vector<std::string> names;
        for (const auto& [name, value] : m_reading->env) {
            names.push_back(name);
        }
        return "nothing is called '" + unknown + "' in env" + suggestion(unknown, names);
    }
    const auto expected = [&](bool isSo) { return isSo ? "" : form.describe() + " is expected here"; };
    switch (form.type) {
    case FlowType::text:
        return "";
    case FlowType::number:
        return expected(numberIn(text) >= 0);
    case FlowType::truth:
        return expected(text == "true" || text == "false");
    case FlowType::point:
        return expected(pointIfAny().has_value());
    case FlowType::word:
        return std::find(form.words.begin(), form.words.end(), text) != form.words.end()
                   ? ""
                   : "'" + text + "' is not " + form.describe() + suggestion(text, form.words);
    default:
        break;
    }
    if (text.empty()) {
        return "this text must not be empty";
    }
    std::error_code error;
    switch (form.type) {
    case FlowType::link:
        return NSURL::URLWithString(text) ? "" : "'" + text + "' is not a link";
    case FlowType::picture:
        return problemOfPictureName(text);
    case FlowType::file:
        return fs::exists(m_reading->besideIt(text), error) ? "" : "there is no file " + m_reading->besideIt(text);
    case FlowType::device: {
        const Result<Device> device = deviceNamed(text);
        return device ? "" : device.failure().what;
    }
    case FlowType::person: {
        const std::vector<std::string>& people = m_reading->participants;
        if (text != "me" && std::find(people.begin(), people.end(), text) == people.end()) {
            complain("'" + text + "' is not in the conversation" + suggestion(text, people), Severity::warning);
        }
        return "";
    }
    default:
        return "";
    }
}

std::string FlowValue::text() const {
    std::string unknown;
    return replaceNames(m_node->text, m_reading->env, unknown);
}

int FlowValue::number() const {
    return numberIn(text());
}

std::optional<FlowPoint> FlowValue::pointIfAny() const {
    const std::string written = text();
    const char* rest = written.c_str();
    const double x = takeCoordinate(rest);
    const bool relative = takeCharacter(rest, '%');
    const bool hasComma = takeCharacter(rest, ',');
    const double y = takeCoordinate(rest);
    const bool isWhole = takeCharacter(rest, '%') == relative && *rest == '\0';
    const bool isPoint = hasComma && isWhole && std::isfinite(x) && std::isfinite(y);
    return isPoint ? std::optional(FlowPoint{x, y, relative}) : std::nullopt;
}

FlowPoint FlowValue::point() const {
    return pointIfAny().value_or(FlowPoint{});
}

std::vector<FlowPoint> FlowValue::points() const {
    std::vector<FlowPoint> points;
    for (const FlowValue& item : list()) {
        points.push_back(item.point());
    }
    return points;
}

std::vector<std::string> FlowValue::texts() const {
    std::vector<std::string> texts;
    for (const FlowValue& item : list()) {
        texts.push_back(item.text());
    }
    return texts;
}

std::vector<std::pair<std::string, std::string>> FlowValue::values() const {
    std::vector<std::pair<std::string, std::string>> values;
    for (const FlowEntry& entry : m_node->entries) {
        values.emplace_back(entry.key.text, FlowValue(entry.value, *m_reading).text());
    }
    return values;
}

NSURL FlowValue::link() const {
    return NSURL::URLWithString(text()).value();
}

Selector FlowValue::selector() const {
    if (!isMap()) {
        return {text(), std::nullopt, std::nullopt};
    }
    const auto nested = [this](std::string_view key) {
        const std::optional<FlowValue> value = find(key);
        return value ? std::make_shared<const Selector>(value->selector()) : nullptr;
    };
    Selector selector{find("text", &FlowValue::text),
                      find("id", &FlowValue::text),
                      find("index", &FlowValue::number),
                      find("enabled", &FlowValue::isTrue),
                      nested("below"),
                      nested("above")};
    if (!selector.text && !selector.id) {
        complain("'text' or 'id' must say which element is meant");
    }
    return selector;
}

std::vector<FlowValue> FlowValue::list() const {
    if (!isList()) {
        return {*this};
    }
    std::vector<FlowValue> values;
    for (const FlowNode& item : m_node->items) {
        values.emplace_back(item, *m_reading);
    }
    return values;
}

std::optional<FlowValue> FlowValue::find(std::string_view key) const {
    for (const FlowEntry& entry : m_node->entries) {
        if (entry.key.text == key) {
            return FlowValue(entry.value, *m_reading);
        }
    }
    return std::nullopt;
}

std::optional<FlowValue> FlowValue::itselfOr(std::string_view key) const {
    return isMap() ? find(key) : *this;
}
