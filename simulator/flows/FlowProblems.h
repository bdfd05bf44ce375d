#pragma once

#include "simulator/findings/Finding.h"
#include "simulator/flows/FlowNode.h"

#include <string>
#include <utility>
#include <vector>

/// Collects what is wrong with one flow file while it is read, so that a reader is told everything at once.
class FlowProblems {
public:
    explicit FlowProblems(std::string file) : m_file(std::move(file)) {}

    void add(int line, int column, std::string message) {
        m_findings.push_back({m_file, line, column, Severity::error, std::move(message)});
    }
    void add(const FlowNode& node, std::string message) { add(node.line, node.column, std::move(message)); }

    [[nodiscard]] const std::string& file() const { return m_file; }
    [[nodiscard]] const std::vector<Finding>& findings() const { return m_findings; }

private:
    std::string m_file;
    std::vector<Finding> m_findings;
};
