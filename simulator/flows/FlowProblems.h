#pragma once

#include "platform/foundation/Finding.h"
#include "simulator/flows/FlowNode.h"

#include <string>
#include <utility>
#include <vector>

/// Collects what is wrong with one flow file while it is read, so that a reader is told everything at once.
class FlowProblems {
public:
    explicit FlowProblems(std::string file) : m_file(std::move(file)) {}

    void add(std::optional<TextPlace> place, std::string message) {
        m_findings.push_back({Severity::error, m_file, place, std::move(message)});
    }
    void add(const FlowNode& node, std::string message) { add(node.place, std::move(message)); }

    [[nodiscard]] const std::string& file() const { return m_file; }
    [[nodiscard]] const Findings& findings() const { return m_findings; }

private:
    std::string m_file;
    Findings m_findings;
};
