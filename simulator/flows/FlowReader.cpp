#include "simulator/flows/FlowReader.h"

#include "platform/foundation/FileReading.h"
#include "platform/foundation/Nearest.h"
#include "simulator/flows/FlowCommands.h"
#include "simulator/flows/FlowDocuments.h"
#include "simulator/flows/FlowValue.h"

#include <filesystem>

namespace {

/// Files that a flow names stand beside it.
std::string besideFlow(const std::string& flow, const std::string& file) {
    return (std::filesystem::path(flow).parent_path() / file).string();
}

void readOverride(const FlowValue& value, Flow& flow) {
    value.allowOnly({"name", "file"});
    if (value.isMap()) {
        flow.overrides.push_back({value.requiredText("name"), besideFlow(flow.file, value.requiredText("file"))});
    }
}

void readSettings(const FlowValue& settings, Flow& flow) {
    settings.allowOnly({"appId", "name", "tags", "device", "scene", "participants", "withoutResource", "resource"});
    if (const auto appId = settings.find("appId")) {
        static_cast<void>(appId->name()); // there is one extension; the key is for readers and other tools
    }
    if (const auto tags = settings.find("tags")) {
        static_cast<void>(tags->texts());
    }
    if (const auto name = settings.find("name")) {
        flow.name = name->name();
    }
    if (const auto device = settings.find("device")) {
        flow.device = device->name();
    }
    if (const auto scene = settings.find("scene")) {
        flow.scene = scene->word({"canvas"});
    }
    if (const auto participants = settings.find("participants")) {
        flow.participants = participants->texts();
    }
    if (const auto missing = settings.find("withoutResource")) {
        for (const std::string& name : missing->texts()) {
            flow.overrides.push_back({name, std::nullopt});
        }
    }
    if (const auto replaced = settings.find("resource")) {
        for (const FlowValue& value : replaced->isList() ? replaced->list() : std::vector{*replaced}) {
            readOverride(value, flow);
        }
    }
}

const FlowCommand* findCommand(const FlowNode& key, FlowProblems& problems) {
    std::vector<std::string> names;
    for (const FlowCommand& command : flowCommands()) {
        if (command.name == key.text) {
            return &command;
        }
        names.push_back(command.name);
    }
    problems.add(key, "unknown command '" + key.text + "'" + suggestion(key.text, names));
    return nullptr;
}

void readStep(const FlowNode& key, const FlowNode& argument, Flow& flow, FlowProblems& problems) {
    if (const FlowCommand* command = findCommand(key, problems)) {
        flow.steps.push_back({key.place, command->name, command->read(FlowValue(argument, problems))});
    }
}

void readSteps(const FlowNode& list, Flow& flow, FlowProblems& problems) {
    for (const FlowNode& item : list.items) {
        if (item.kind == FlowNode::Kind::text) {
            FlowNode nothing;
            nothing.place = item.place;
            readStep(item, nothing, flow, problems);
        } else if (item.kind != FlowNode::Kind::map || item.entries.empty()) {
            problems.add(item, "a command is expected here, such as '- launchApp' or '- tapOn: Friends'");
        } else if (item.entries.size() > 1) {
            const FlowNode& second = item.entries[1].key;
            problems.add(second, "a command has one key, and '" + item.entries[0].key.text + "' is it; indent '" +
                                     second.text + "' further if it belongs to that command");
        } else {
            readStep(item.entries[0].key, item.entries[0].value, flow, problems);
        }
    }
}

} // namespace

std::optional<Flow> readFlow(const std::string& text, FlowProblems& problems) {
    const std::vector<FlowNode> documents = readFlowDocuments(text, problems);
    if (!problems.findings().empty()) {
        return std::nullopt;
    }
    const FlowNode* settings = documents.size() == 2 ? &documents.front() : nullptr;
    if (documents.empty() || documents.size() > 2 || documents.back().kind != FlowNode::Kind::list) {
        problems.add(documents.empty() ? FlowNode() : documents.back(),
                     "a flow is an optional map of settings, then '---', then a list of commands");
        return std::nullopt;
    }
    Flow flow;
    flow.file = problems.file();
    flow.name = std::filesystem::path(flow.file).stem().string();
    if (settings != nullptr && settings->kind != FlowNode::Kind::nothing) {
        readSettings(FlowValue(*settings, problems), flow);
    }
    readSteps(documents.back(), flow, problems);
    return problems.findings().empty() ? std::optional(std::move(flow)) : std::nullopt;
}

std::optional<Flow> readFlowFile(const std::string& path, FlowProblems& problems) {
    Result<std::string> text = readWholeFile(path);
    if (!text) {
        problems.add(std::nullopt, text.failure().what);
        return std::nullopt;
    }
    return readFlow(text.value(), problems);
}
