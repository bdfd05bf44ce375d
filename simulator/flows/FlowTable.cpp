#include "simulator/flows/FlowTable.h"

#include <algorithm>
#include <iterator>
#include <map>

FlowKeys joined(FlowKeys keys, const FlowKeys& more) {
    keys.insert(keys.end(), more.begin(), more.end());
    return keys;
}

const FlowShape& shapeOf(FlowType type) {
    static const std::map<FlowType, FlowShape> shapes{
        {FlowType::nothing, {"nothing", aNothing}},
        {FlowType::text, {"a text", aText}},
        {FlowType::name, {"a text that is not empty", aText}},
        {FlowType::number, {"a whole number from 0 to " + std::to_string(greatestNumber), aText}},
        {FlowType::truth, {"true or false", aText}},
        {FlowType::word, {"one of ", aText}},
        {FlowType::point, {R"(a point such as "120,40" or "50%,80%")", aText}},
        {FlowType::points, {"a list of points, two at least,", aList, FlowType::point, 2}},
        {FlowType::texts, {"a text or a list of texts", aText | aList, FlowType::text}},
        {FlowType::link, {"a link", aText}},
        {FlowType::person, {"a person of the conversation", aText}},
        {FlowType::device, {"a device", aText}},
        {FlowType::picture, {"the name of a picture", aText}},
        {FlowType::file, {"the name of a file beside the flow", aText}},
        {FlowType::selector,
         {"the text of an element or a map with its text or id", aText | aMap, {}, 0, selectorKeys}},
        {FlowType::condition, {"a map with 'visible' or 'notVisible'", aMap, {}, 0, conditionKeys}},
        {FlowType::values, {"a map of names and texts", aMap}},
        {FlowType::resource, {"a map with 'name' and 'file'", aMap, {}, 0, resourceKeys}},
        {FlowType::resources,
         {"a map with 'name' and 'file' or a list of such maps", aMap | aList, FlowType::resource, 0, resourceKeys}},
        {FlowType::commands, {"a list of commands", aList}},
    };
    return shapes.at(type);
}

std::string FlowForm::describe() const {
    std::string all = words.size() == 1 ? "" : shapeOf(type).words;
    for (const std::string& word : words) {
        all += (&word == &words.front() ? "" : ", ") + word;
    }
    return all;
}

namespace {

/// Every command that may have a map has these, too.
FlowCommand withCommonKeys(FlowCommand command) {
    const bool takesNothing = !command.values.empty() && command.values.front().type == FlowType::nothing;
    if (!command.options.empty() || takesNothing) {
        command.options.push_back({"label", {FlowType::name}, "what messages call it"});
        command.options.push_back({"optional", {FlowType::truth}, "true: when it fails, the flow does not"});
    }
    return command;
}

} // namespace

const FlowCommands& flowCommands() {
    static const FlowCommands all = [] {
        FlowCommands commands;
        for (const FlowCommands& (*part)() :
             {hostCommands, touchCommands, assertCommands, pictureCommands, controlCommands}) {
            std::transform(part().begin(), part().end(), std::back_inserter(commands), withCommonKeys);
        }
        return commands;
    }();
    return all;
}

const FlowKeys& flowSettings() {
    static const FlowKeys settings{
        {"name", {FlowType::name}, "what messages and reports call the flow"},
        {"tags", {FlowType::texts}, "for readers"},
        {"appId", {FlowType::name}, "for other tools"},
        {"device", {FlowType::device}, "se, 8, 8plus, 15, 15max, or a size such as 390x844@3"},
        {"direction", {FlowType::word, {"rightToLeft"}}, "of the phone's language, which else runs from left to right"},
        {"participants", {FlowType::texts}, "the other people, in the host's order; [A, B] when it is left out"},
        {"withoutResource", {FlowType::texts}, "files of the bundle that the extension does not find"},
        {"resource", {FlowType::resources}, "a file beside the flow in place of one of the bundle"},
        {"env", {FlowType::values}, "names that stand for texts: ${NAME}"},
        {"scene", {FlowType::word, {"canvas"}}, "the drawing canvas on a scene of its own, in place of the extension"},
    };
    return settings;
}

const FlowKeys& selectorKeys() {
    static const FlowKeys keys{
        {"text", {FlowType::name}, "what it says, or its label for assistive tools"},
        {"id", {FlowType::name}, "its identifier"},
        {"index", {FlowType::number}, "which of several, from the top, counted from 0"},
        {"enabled", {FlowType::truth}, "whether it can be used"},
        {"below", {FlowType::selector}, "an element that it stands below"},
        {"above", {FlowType::selector}, "an element that it stands above"},
    };
    return keys;
}

const FlowKeys& conditionKeys() {
    static const FlowKeys keys{
        {"visible", {FlowType::selector}, "an element that is on the screen"},
        {"notVisible", {FlowType::selector}, "an element that is not"},
    };
    return keys;
}

const FlowKeys& resourceKeys() {
    static const FlowKeys keys{
        {"name", {FlowType::name}, "of the bundle's file", FlowNeed::required},
        {"file", {FlowType::file}, "that takes its place", FlowNeed::required},
    };
    return keys;
}
