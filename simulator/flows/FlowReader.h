#pragma once

#include "simulator/flows/Flow.h"

/// Reads a flow: an optional map of settings, then `---`, then the list of commands. Absent when something is wrong;
/// the findings then name `file` and tell everything at once.
[[nodiscard]] std::optional<Flow> readFlow(const std::string& text, const std::string& file, Findings& findings);

/// The flows of all these files, a folder standing for those in it, by name. Incomplete when something is wrong.
[[nodiscard]] std::vector<Flow> readFlowFiles(const std::vector<std::string>& paths, Findings& findings);
