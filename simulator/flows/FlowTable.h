#pragma once

#include "simulator/flows/Flow.h"

class FlowValue;

/// What can stand in one place of a flow.
enum class FlowType {
    nothing,
    text,      // any
    name,      // a text that is not empty
    number,    // whole, from 0 to greatestNumber
    truth,     // true or false
    word,      // one of those that the form lists
    point,     // "120,40" or "50%,80%"
    points,    // a list of two at least
    texts,     // a list, or one text for a list of one
    link,      // a URL
    person,    // "me" or a participant
    device,    // as deviceNamed() knows it
    picture,   // a name inside the pictures' folder
    file,      // one that exists, beside the flow
    selector,  // a text, or a map of selectorKeys()
    condition, // a map of conditionKeys()
    values,    // a map of names of the author's own to texts
    resource,  // a map of resourceKeys()
    resources, // a map of resourceKeys(), or a list of them
    commands,  // a list of commands
};

inline constexpr int greatestNumber = 1'000'000'000;

/// What may stand in one place of a flow, as its author sees it.
struct FlowForm {
    FlowType type;
    std::vector<std::string> words = {}; // of FlowType::word

    /// "a whole number from 0 to 1000000000", for messages and documents.
    [[nodiscard]] std::string describe() const;
};

enum class FlowNeed { optional, required };

/// A key of a map: an option of a command, or a setting.
struct FlowKey {
    const char* name;
    FlowForm form;
    const char* purpose; // in a line
    FlowNeed need = FlowNeed::optional;
};

using FlowKeys = std::vector<FlowKey>;

/// What values of one type are made of.
struct FlowShape {
    std::string words;                   // "a list of points", for messages and documents
    unsigned kinds;                      // which nodes they can be: some of FlowKinds
    std::optional<FlowType> items{};     // of a list; absent: they are read one by one
    std::size_t fewestItems = 0;         // of a list
    const FlowKeys& (*keys)() = nullptr; // of a map; null: of the author's own, for texts
};

enum FlowKinds : unsigned { aNothing = 1, aText = 2, aList = 4, aMap = 8 };

[[nodiscard]] const FlowShape& shapeOf(FlowType type);

/// A command: what may be written behind its name (one of `values`, or a map of `options` unless there are none), and
/// how that becomes an action. Making adds findings for what the forms cannot tell; the action is then never run.
struct FlowCommand {
    const char* name;
    std::vector<FlowForm> values;
    FlowKeys options;
    const char* purpose;
    std::vector<const char*> examples;
    FlowAction (*make)(const FlowValue& value);
};

using FlowCommands = std::vector<FlowCommand>;

/// Everything that a flow can say. The reader, the schema and the documents are made from these tables alone.
[[nodiscard]] const FlowCommands& flowCommands();
[[nodiscard]] const FlowKeys& flowSettings();
[[nodiscard]] const FlowKeys& selectorKeys();
[[nodiscard]] const FlowKeys& conditionKeys();
[[nodiscard]] const FlowKeys& resourceKeys();

// The parts of flowCommands(); each stands at the end of the source that makes its actions.
[[nodiscard]] const FlowCommands& hostCommands();    // what the host does
[[nodiscard]] const FlowCommands& touchCommands();   // what the player's finger and keyboard do
[[nodiscard]] const FlowCommands& assertCommands();  // what must then be so
[[nodiscard]] const FlowCommands& pictureCommands(); // what it looks like
[[nodiscard]] const FlowCommands& controlCommands(); // which commands are played, and how often

/// takeScreenshot, for commands in whose midst a picture is taken.
[[nodiscard]] FlowAction makeTakeScreenshot(const FlowValue& value);
/// The keys of both, for tables.
[[nodiscard]] FlowKeys joined(FlowKeys keys, const FlowKeys& more);
