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

/// A point as it is written; absent when the text is none.
std::optional<FlowPoint> pointIn(const std::string& text) {
    const char* rest = text.c_str();
    const double x = takeCoordinate(rest);
    const bool relative = takeCharacter(rest, '%');
    const bool hasComma = takeCharacter(rest, ',');
    const double y = takeCoordinate(rest);
    const bool isWhole = takeCharacter(rest, '%') == relative && *rest == '\0';
    const bool isPoint = hasComma && isWhole && std::isfinite(x) && std::isfinite(y);
    return isPoint ? std::optional(FlowPoint{x, y, relative}) : std::nullopt;
}

std::string expected(const FlowForm& form) {
    return form.describe() + " is expected here";
}

std::string problemOfWord(const std::string& word, const FlowForm& form, const FlowReading&) {
    const bool isKnown = std::find(form.words.begin(), form.words.end(), word) != form.words.end();
    return isKnown ? "" : "'" + word + "' is not " + form.describe() + suggestion(word, form.words);
}

std::string problemOfDevice(const std::string& name, const FlowForm&, const FlowReading&) {
    const Result<Device> device = deviceNamed(name);
    return device ? "" : device.failure().what;
}

std::string problemOfFile(const std::string& name, const FlowForm&, const FlowReading& reading) {
    std::error_code error;
    return fs::exists(reading.besideIt(name), error) ? "" : "there is no file " + reading.besideIt(name);
}

/// What keeps a text that is not empty from being of a form; empty when nothing does.
std::string problemOf(const std::string& text, const FlowForm& form, const FlowReading& reading) {
    using Check = std::string (*)(const std::string&, const FlowForm&, const FlowReading&);
    static const std::map<FlowType, Check> checks{
        {FlowType::number, [](auto& number, auto& type, auto&) { return numberIn(number) < 0 ? expected(type) : ""; }},
        {FlowType::truth,
         [](auto& truth, auto& type, auto&) -> std::string {
             return truth == "true" || truth == "false" ? "" : expected(type);
         }},
        {FlowType::point, [](auto& point, auto& type, auto&) { return pointIn(point) ? "" : expected(type); }},
        {FlowType::link,
         [](auto& link, auto&, auto&) -> std::string {
             return NSURL::URLWithString(link) ? "" : "'" + link + "' is not a link";
         }},
        {FlowType::picture, [](auto& name, auto&, auto&) { return problemOfPictureName(name); }},
        {FlowType::word, problemOfWord},
        {FlowType::device, problemOfDevice},
        {FlowType::file, problemOfFile},
    };
    const auto check = checks.find(form.type);
    return check == checks.end() ? "" : check->second(text, form, reading);
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
    static const std::map<FlowNode::Kind, FlowKinds> kinds{{FlowNode::Kind::nothing, aNothing},
                                                           {FlowNode::Kind::text, aText},
                                                           {FlowNode::Kind::list, aList},
                                                           {FlowNode::Kind::map, aMap}};
    std::string all;
    for (const FlowForm& form : forms) {
        if ((shapeOf(form.type).kinds & kinds.at(m_node->kind)) != 0) {
            return checkInside(form);
        }
        all += (all.empty() ? "" : " or ") + form.describe();
    }
    const bool canBeNothing = !forms.empty() && forms.front().type == FlowType::nothing;
    if (!keys.empty() && !canBeNothing) {
        all += (all.empty() ? "" : " or ") + ("a map with '" + std::string(keys.front().name) + "'") +
               (keys.size() > 1 ? " or other keys" : "");
    }
    complain(all + " is expected here");
    return false;
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
    const FlowShape& shape = shapeOf(form.type);
    bool isGood = true;
    if (isText()) {
        isGood = checkText(form);
    } else if (isMap() && shape.keys != nullptr) {
        isGood = checkKeys(shape.keys());
    } else if (isList() && m_node->items.size() < shape.fewestItems) {
        complain(expected(form));
        isGood = false;
    }
    if (shape.items) {
        for (const FlowNode& item : m_node->items) {
            isGood = FlowValue(item, *m_reading).check({{*shape.items}}) && isGood;
        }
    }
    if (shape.keys == nullptr) {
        for (const FlowEntry& entry : m_node->entries) {
            isGood = FlowValue(entry.value, *m_reading).check({{FlowType::text}, {FlowType::nothing}}) && isGood;
        }
    }
    return isGood;
}

bool FlowValue::checkText(const FlowForm& form) const {
    const bool canBeEmpty = form.type == FlowType::text || form.type == FlowType::texts;
    std::string unknown;
    const std::string text = replaceNames(m_node->text, m_reading->env, unknown);
    std::string problem = text.empty() && !canBeEmpty ? expected(form) : problemOf(text, form, *m_reading);
    if (!unknown.empty()) {
        std::vector<std::string> names;
        for (const auto& [name, value] : m_reading->env) {
            names.push_back(name);
        }
        problem = "nothing is called '" + unknown + "' in env" + suggestion(unknown, names);
    }
    if (!problem.empty()) {
        complain(problem);
    } else if (form.type == FlowType::person && m_reading->participants != nullptr) {
        checkPerson(text, *m_reading->participants);
    }
    return problem.empty();
}

void FlowValue::checkPerson(const std::string& name, const std::vector<std::string>& people) const {
    if (name != "me" && std::find(people.begin(), people.end(), name) == people.end()) {
        complain("'" + name + "' is not in the conversation" + suggestion(name, people), Severity::warning);
    }
}

std::string FlowValue::text() const {
    std::string unknown;
    return replaceNames(m_node->text, m_reading->env, unknown);
}

int FlowValue::number() const {
    return numberIn(text());
}

FlowPoint FlowValue::point() const {
    return pointIn(text()).value_or(FlowPoint{});
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
