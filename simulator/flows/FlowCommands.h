#pragma once

#include "simulator/flows/Flow.h"
#include "simulator/flows/FlowValue.h"

/// A command's name and how its value is read. Reading adds problems; what it returns is then never run.
struct FlowCommand {
    const char* name;
    FlowAction (*read)(const FlowValue& value);
};

// Every command that a flow can use; each table stands at the end of the source that plays its commands.
[[nodiscard]] const std::vector<FlowCommand>& hostCommands();    // what the host does
[[nodiscard]] const std::vector<FlowCommand>& touchCommands();   // what the player's finger and keyboard do
[[nodiscard]] const std::vector<FlowCommand>& assertCommands();  // what must then be so
[[nodiscard]] const std::vector<FlowCommand>& pictureCommands(); // what it looks like

/// takeScreenshot, for commands in whose midst a picture is taken.
[[nodiscard]] FlowAction readTakeScreenshot(const FlowValue& value);
