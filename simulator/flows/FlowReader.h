#pragma once

#include "simulator/flows/Flow.h"
#include "simulator/flows/FlowProblems.h"

#include <optional>
#include <string>

/// Reads a flow: an optional map of settings, then `---`, then the list of commands. Absent after any problem.
[[nodiscard]] std::optional<Flow> readFlow(const std::string& text, FlowProblems& problems);
/// The same for a file.
[[nodiscard]] std::optional<Flow> readFlowFile(const std::string& path, FlowProblems& problems);
