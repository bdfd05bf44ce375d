#pragma once

#include "simulator/flows/Flow.h"

class FlowValue;

/// Reads a flow: an optional map of settings, then `---`, then the list of commands. Absent when something is wrong;
/// the findings then tell everything at once, each with its place in `file` or in a flow that it runs. Any bytes may be
/// given.
[[nodiscard]] std::optional<Flow> readFlow(const std::string& text, const std::string& file, Findings& findings);

/// The paths of the flows that a command line names: a folder stands for those in it and in the folders below, by name.
[[nodiscard]] std::vector<std::string> flowFilesAt(const std::string& path);
/// Reads the flow of one file.
[[nodiscard]] std::optional<Flow> readFlowFile(const std::string& file, Findings& findings);

// For commands that have others inside.
/// A list of commands.
[[nodiscard]] FlowSteps readSteps(const FlowValue& list);
/// The commands of the flow that `file`, a text, names, with `env` on top of the names that are known already.
[[nodiscard]] FlowSteps readStepsOfFlow(const FlowValue& file,
                                        const std::vector<std::pair<std::string, std::string>>& env);
