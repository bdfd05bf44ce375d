#include "simulator/flows/FlowReader.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/Nearest.h"
#include "simulator/flows/FlowTable.h"
#include "simulator/flows/FlowValue.h"

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostSteps = 10'000; // of a flow and those that it runs

void takeSettings(const FlowValue& settings, Flow& flow) {
    flow.name = settings.find("name", &FlowValue::text).value_or(flow.name);
    flow.participants = settings.find("participants", &FlowValue::texts).value_or(flow.participants);
    flow.device = settings.find("device", &FlowValue::text).value_or("");
    flow.rightToLeft = settings.find("direction").has_value();
    flow.scene = settings.find("scene", &FlowValue::text).value_or("");
    if (const auto removed = settings.find("withoutResource")) {
        for (const FlowValue& name : removed->list()) {
            flow.overrides.push_back({name.text(), std::nullopt, name.node().place});
        }
    }
    if (const auto replaced = settings.find("resource")) {
        for (const FlowValue& value : replaced->list()) {
            flow.overrides.push_back({value.find("name")->text(),
                                      settings.reading().besideIt(value.find("file")->text()),
                                      value.find("name")->node().place});
        }
    }
}

const FlowCommand* findCommand(const FlowValue& key) {
    std::vector<std::string> names;
    for (const FlowCommand& command : flowCommands()) {
        if (command.name == key.node().text) {
            return &command;
        }
        names.emplace_back(command.name);
    }
    const std::string& text = key.node().text;
    const std::string word = text.substr(0, text.find(' '));
    const bool lacksColon = word != text && std::find(names.begin(), names.end(), word) != names.end();
    key.complain(lacksColon ? "a ':' is missing behind '" + word + "'"
                            : "unknown command '" + text + "'" + suggestion(text, names));
    return nullptr;
}

void readStep(const FlowValue& key, const FlowValue& argument, FlowSteps& steps) {
    const FlowReading& reading = key.reading();
    if (reading.stepsLeft == 0) {
        return;
    }
    if (--reading.stepsLeft == 0) {
        key.complain("a flow and those that it runs have at most " + std::to_string(mostSteps) + " commands");
        return;
    }
    const FlowCommand* command = findCommand(key);
    if (command != nullptr && argument.check(command->values, command->options)) {
        const bool hasOptions = argument.isMap() && !command->options.empty();
        const auto label = hasOptions ? argument.find("label", &FlowValue::text) : std::nullopt;
        steps.push_back({reading.file, key.node().place, label.value_or(command->name), command->make(argument),
                         hasOptions && argument.find("optional", &FlowValue::isTrue).value_or(false)});
    }
}

struct Parts {
    const FlowNode* settings = nullptr; // null: none
    const FlowNode* commands = nullptr; // null: what was read is no flow
};

Parts partsOf(const std::vector<FlowNode>& documents, const FlowReading& reading) {
    using Kind = FlowNode::Kind;
    if (documents.empty() || documents.size() > 2 || documents.back().kind != Kind::list) {
        reading.findings.push_back({Severity::error, reading.file,
                                    documents.empty() ? TextPlace() : documents.back().place,
                                    "a flow is an optional map of settings, then '---', then a list of commands"});
        return {};
    }
    const bool hasSettings = documents.size() == 2 && documents.front().kind != Kind::nothing;
    return {hasSettings ? &documents.front() : nullptr, &documents.back()};
}

/// Reads the settings and commands of one file into the flow. The names of `env` that are known already stay.
void readInto(Flow& flow, const std::string& text, FlowReading& reading) {
    std::vector<Failure> problems;
    const std::vector<FlowNode> documents = readFlowDocuments(text, problems);
    for (const Failure& problem : problems) {
        reading.findings.push_back(problem.in(reading.file));
    }
    reading.participants = &flow.participants;
    const Parts parts = problems.empty() ? partsOf(documents, reading) : Parts{};
    if (parts.settings != nullptr) {
        const FlowValue settings(*parts.settings, reading);
        if (settings.check({}, flowSettings())) {
            takeSettings(settings, flow);
            if (const auto env = settings.find("env", &FlowValue::values)) {
                reading.env.insert(env->begin(), env->end());
            }
        } else {
            reading.participants = nullptr;
        }
    }
    if (parts.commands != nullptr) {
        flow.steps = readSteps(FlowValue(*parts.commands, reading));
    }
}

bool isSameFile(const std::string& one, const std::string& other) {
    std::error_code error;
    return one == other || fs::equivalent(one, other, error);
}

} // namespace

FlowSteps readSteps(const FlowValue& list) {
    FlowSteps steps;
    for (const FlowValue& item : list.list()) {
        const FlowNode& node = item.node();
        if (item.isText()) {
            FlowNode nothing;
            nothing.place = node.place;
            readStep(item, FlowValue(nothing, item.reading()), steps);
        } else if (!item.isMap() || node.entries.empty()) {
            item.complain("a command is expected here, such as '- launchApp' or '- tapOn: Friends'");
        } else if (node.entries.size() > 1) {
            const FlowNode& second = node.entries[1].key;
            FlowValue(second, item.reading())
                .complain("a command has one key, and '" + node.entries[0].key.text + "' is it; indent '" +
                          second.text + "' further if it belongs to that command");
        } else {
            readStep(FlowValue(node.entries[0].key, item.reading()), FlowValue(node.entries[0].value, item.reading()),
                     steps);
        }
    }
    return steps;
}

FlowSteps readStepsOfFlow(const FlowValue& file, const std::vector<std::pair<std::string, std::string>>& env) {
    const FlowReading& outer = file.reading();
    FlowReading reading{outer.besideIt(file.text()), outer.findings, outer.stepsLeft, outer.env, nullptr, &outer};
    for (const FlowReading* at = &outer; at != nullptr; at = at->runBy) {
        if (isSameFile(at->file, reading.file)) {
            file.complain("this flow runs in a circle: it is already being run");
            return {};
        }
    }
    const Result<std::string> text = readWholeFile(reading.file);
    if (!text) {
        file.complain(text.failure().what);
        return {};
    }
    for (const auto& [name, value] : env) {
        reading.env[name] = value;
    }
    Flow flow;
    if (outer.participants != nullptr) {
        flow.participants = *outer.participants;
    }
    readInto(flow, text.value(), reading);
    return flow.steps;
}

std::optional<Flow> readFlow(const std::string& text, const std::string& file, Findings& findings) {
    const std::size_t before = findings.size();
    std::size_t stepsLeft = mostSteps;
    FlowReading reading{file, findings, stepsLeft, {}};
    Flow flow;
    flow.file = file;
    flow.name = fs::path(file).stem().string();
    readInto(flow, text, reading);
    const bool isGood = !hasErrors({findings.begin() + static_cast<std::ptrdiff_t>(before), findings.end()});
    return isGood ? std::optional(std::move(flow)) : std::nullopt;
}

std::optional<Flow> readFlowFile(const std::string& file, Findings& findings) {
    const Result<std::string> text = readWholeFile(file);
    if (!text) {
        findings.push_back(text.failure().in(file));
        return std::nullopt;
    }
    return readFlow(text.value(), file, findings);
}

std::vector<std::string> flowFilesAt(const std::string& path) {
    std::error_code error;
    if (!fs::is_directory(path, error)) {
        return {path};
    }
    std::vector<std::string> files;
    const fs::recursive_directory_iterator end;
    const auto options = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator item(path, options, error); !error && item != end; item.increment(error)) {
        if (item->path().extension() == ".yaml" || item->path().extension() == ".yml") {
            files.push_back(item->path().string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}
