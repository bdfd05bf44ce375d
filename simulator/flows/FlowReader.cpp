#include "simulator/flows/FlowReader.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/Nearest.h"
#include "simulator/conversation/Device.h"
#include "simulator/flows/FlowCommands.h"

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

void readOverride(const FlowValue& value, Flow& flow) {
    value.allowOnly({"name", "file"});
    if (value.isMap()) {
        flow.overrides.push_back({value.requiredText("name"), flow.besideIt(value.requiredText("file"))});
    }
}

void readSettings(const FlowValue& settings, Flow& flow) {
    const std::vector<std::string> none;
    settings.allowOnly({"appId", "name", "tags", "device", "scene", "participants", "withoutResource", "resource"});
    // There is one extension, and all named flows are played: these two are for readers and other tools.
    static_cast<void>(settings.find("appId", &FlowValue::name));
    static_cast<void>(settings.find("tags", &FlowValue::texts));
    flow.name = settings.find("name", &FlowValue::name).value_or(flow.name);
    flow.participants = settings.find("participants", &FlowValue::texts).value_or(flow.participants);
    if (const auto device = settings.find("device")) {
        flow.device = device->name();
        if (const Result<Device> known = deviceNamed(flow.device); !known && !flow.device.empty()) {
            device->complain(known.failure().what);
        }
    }
    if (const auto scene = settings.find("scene")) {
        flow.scene = scene->word({"canvas"});
    }
    for (const std::string& name : settings.find("withoutResource", &FlowValue::texts).value_or(none)) {
        flow.overrides.push_back({name, std::nullopt});
    }
    if (const auto replaced = settings.find("resource")) {
        for (const FlowValue& value : replaced->isList() ? replaced->list() : std::vector{*replaced}) {
            readOverride(value, flow);
        }
    }
}

const FlowCommand* findCommand(const FlowNode& key, std::vector<Failure>& problems) {
    std::vector<std::string> names;
    for (const auto* table : {&hostCommands(), &touchCommands(), &assertCommands(), &pictureCommands()}) {
        for (const FlowCommand& command : *table) {
            if (command.name == key.text) {
                return &command;
            }
            names.emplace_back(command.name);
        }
    }
    problems.push_back({"unknown command '" + key.text + "'" + suggestion(key.text, names), key.place});
    return nullptr;
}

void readStep(const FlowNode& key, const FlowNode& argument, Flow& flow, std::vector<Failure>& problems) {
    if (const FlowCommand* command = findCommand(key, problems)) {
        flow.steps.push_back({key.place, command->name, command->read(FlowValue(argument, problems))});
    }
}

void readSteps(const FlowNode& list, Flow& flow, std::vector<Failure>& problems) {
    for (const FlowNode& item : list.items) {
        if (item.kind == FlowNode::Kind::text) {
            FlowNode nothing;
            nothing.place = item.place;
            readStep(item, nothing, flow, problems);
        } else if (item.kind != FlowNode::Kind::map || item.entries.empty()) {
            problems.push_back({"a command is expected here, such as '- launchApp' or '- tapOn: Friends'", item.place});
        } else if (item.entries.size() > 1) {
            const FlowNode& second = item.entries[1].key;
            problems.push_back({"a command has one key, and '" + item.entries[0].key.text + "' is it; indent '" +
                                    second.text + "' further if it belongs to that command",
                                second.place});
        } else {
            readStep(item.entries[0].key, item.entries[0].value, flow, problems);
        }
    }
}

Flow readDocuments(const std::vector<FlowNode>& documents, const std::string& file, std::vector<Failure>& problems) {
    Flow flow;
    flow.file = file;
    flow.name = fs::path(file).stem().string();
    if (documents.empty() || documents.size() > 2 || documents.back().kind != FlowNode::Kind::list) {
        problems.push_back({"a flow is an optional map of settings, then '---', then a list of commands",
                            documents.empty() ? TextPlace() : documents.back().place});
        return flow;
    }
    if (documents.size() == 2 && documents.front().kind != FlowNode::Kind::nothing) {
        readSettings(FlowValue(documents.front(), problems), flow);
    }
    readSteps(documents.back(), flow, problems);
    return flow;
}

/// The path itself, or the flows in the folder that it names.
std::vector<std::string> flowFilesAt(const std::string& path) {
    std::error_code error;
    if (!fs::is_directory(path, error)) {
        return {path};
    }
    std::vector<std::string> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(path, error)) {
        if (entry.path().extension() == ".yaml" || entry.path().extension() == ".yml") {
            files.push_back(entry.path().string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

std::optional<Flow> readFlow(const std::string& text, const std::string& file, Findings& findings) {
    std::vector<Failure> problems;
    const std::vector<FlowNode> documents = readFlowDocuments(text, problems);
    Flow flow = problems.empty() ? readDocuments(documents, file, problems) : Flow();
    for (const Failure& problem : problems) {
        findings.push_back(problem.in(file));
    }
    return problems.empty() ? std::optional(std::move(flow)) : std::nullopt;
}

std::vector<Flow> readFlowFiles(const std::vector<std::string>& paths, Findings& findings) {
    std::vector<Flow> flows;
    for (const std::string& path : paths) {
        for (const std::string& file : flowFilesAt(path)) {
            const Result<std::string> text = readWholeFile(file);
            if (!text) {
                findings.push_back(text.failure().in(file));
            } else if (std::optional<Flow> flow = readFlow(text.value(), file, findings)) {
                flows.push_back(*std::move(flow));
            }
        }
    }
    return flows;
}
