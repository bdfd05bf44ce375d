#pragma once

#include "platform/foundation/Finding.h"

#include <string_view>

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

/// The YAML documents of a flow file. Stricter than YAML: keys are words and written once, a text ends on its line
/// unless it is a block, and there are no references, tags or directives. Empty when a problem was added.
[[nodiscard]] std::vector<FlowNode> readFlowDocuments(std::string_view text, std::vector<Failure>& problems);
