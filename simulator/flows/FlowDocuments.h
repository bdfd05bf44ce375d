#pragma once

#include "platform/foundation/Finding.h"

struct FlowEntry;

/// One value of a flow file as it was written, and where.
struct FlowNode {
    enum class Kind { nothing, text, list, map };

    Kind kind = Kind::nothing;
    std::string text;
    std::vector<FlowNode> items;
    std::vector<FlowEntry> entries;
    TextPlace place;
};

struct FlowEntry {
    FlowNode key;
    FlowNode value;
};

/// The YAML documents of a flow file. Stricter than YAML where YAML is silent: a key written twice, a tab as
/// indentation and a quote that is not closed on its own line are problems, too. Empty when a problem was added.
[[nodiscard]] std::vector<FlowNode> readFlowDocuments(const std::string& text, std::vector<Failure>& problems);
