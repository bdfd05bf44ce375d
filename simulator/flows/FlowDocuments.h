#pragma once

#include "simulator/flows/FlowNode.h"
#include "simulator/flows/FlowProblems.h"

#include <string>
#include <vector>

/// The YAML documents of a flow file. Stricter than YAML where YAML is silent: a key written twice, a tab as
/// indentation and a quote that is not closed on its own line are problems. Empty after any problem.
[[nodiscard]] std::vector<FlowNode> readFlowDocuments(const std::string& text, FlowProblems& problems);
