#pragma once

#include "platform/foundation/Finding.h"

#include <string>
#include <vector>

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
