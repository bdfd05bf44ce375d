#pragma once

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
    int line = 1; // both counted from 1
    int column = 1;
};

struct FlowEntry {
    FlowNode key;
    FlowNode value;
};
