#pragma once

#include "simulator/flows/Flow.h"
#include "simulator/flows/FlowValue.h"

#include <functional>
#include <string>
#include <vector>

using FlowAction = std::function<Outcome(FlowPlayer&)>;

/// A command's name and how its value is read. Reading reports problems; what it returns is then never run.
struct FlowCommand {
    std::string name;
    FlowAction (*read)(const FlowValue& value);
};

/// Every command that a flow can use.
[[nodiscard]] const std::vector<FlowCommand>& flowCommands();

// What the host does.
FlowAction readLaunchApp(const FlowValue& value);
FlowAction readOpenBubble(const FlowValue& value);
FlowAction readReceiveMessage(const FlowValue& value);
FlowAction readStartSending(const FlowValue& value);
FlowAction readCancelSending(const FlowValue& value);
FlowAction readResign(const FlowValue& value);
FlowAction readSetStyle(const FlowValue& value);
FlowAction readWait(const FlowValue& value);
FlowAction readWaitForAnimationToEnd(const FlowValue& value);

// What the player's finger and keyboard do.
FlowAction readTapOn(const FlowValue& value);
FlowAction readSwipe(const FlowValue& value);
FlowAction readScroll(const FlowValue& value);
FlowAction readScrollUntilVisible(const FlowValue& value);
FlowAction readInputText(const FlowValue& value);

// What must then be so.
FlowAction readAssertVisible(const FlowValue& value);
FlowAction readAssertNotVisible(const FlowValue& value);
FlowAction readAssertLink(const FlowValue& value);
FlowAction readAssertDebug(const FlowValue& value);
FlowAction readAssertTree(const FlowValue& value);
FlowAction readAssertStyleRequests(const FlowValue& value);

// What it looks like.
FlowAction readTakeScreenshot(const FlowValue& value);
FlowAction readAssertScreenshot(const FlowValue& value);
FlowAction readSetAppearance(const FlowValue& value);
