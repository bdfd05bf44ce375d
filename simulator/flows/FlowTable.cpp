#include "simulator/flows/FlowTable.h"

FlowKeys joined(FlowKeys keys, const FlowKeys& more) {
    keys.insert(keys.end(), more.begin(), more.end());
    return keys;
}

std::string FlowForm::describe() const {
    switch (type) {
    case FlowType::nothing:
        return "nothing";
    case FlowType::text:
        return "a text";
    case FlowType::name:
        return "a text that is not empty";
    case FlowType::number:
        return "a whole number from 0 to " + std::to_string(greatestNumber);
    case FlowType::truth:
        return "true or false";
    case FlowType::word: {
        std::string all;
        for (const std::string& word : words) {
            all += (all.empty() ? "" : ", ") + word;
        }
        return words.size() > 1 ? "one of " + all : all;
    }
    case FlowType::point:
        return R"(a point such as "120,40" or "50%,80%")";
    case FlowType::points:
        return "a list of points";
    case FlowType::texts:
        return "a text or a list of texts";
    case FlowType::link:
        return "a link";
    case FlowType::person:
        return "a person of the conversation";
    case FlowType::device:
        return "a device";
    case FlowType::picture:
        return "the name of a picture";
    case FlowType::file:
        return "the name of a file beside the flow";
    case FlowType::selector:
        return "the text of an element or a map with its text or id";
    case FlowType::condition:
        return "a map with 'visible' or 'notVisible'";
    case FlowType::values:
        return "a map of names and texts";
    case FlowType::resources:
        return "a map with 'name' and 'file' or a list of such maps";
    case FlowType::commands:
        return "a list of commands";
    }
    return "";
}

const FlowCommands& flowCommands() {
    static const FlowCommands all = [] {
        // Every command that may have a map has these, too.
        const FlowKeys common{{"label", {FlowType::name}, "what messages call it"},
                              {"optional", {FlowType::truth}, "true: when it fails, the flow does not"}};
        FlowCommands commands;
        for (FlowCommands (*part)() : {hostCommands, touchCommands, assertCommands, pictureCommands, controlCommands}) {
            for (FlowCommand& command : part()) {
                const bool takesNothing = !command.values.empty() && command.values.front().type == FlowType::nothing;
                if (!command.options.empty() || takesNothing) {
                    command.options = joined(std::move(command.options), common);
                }
                commands.push_back(std::move(command));
            }
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
