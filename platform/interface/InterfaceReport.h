#pragma once

#include "platform/foundation/Finding.h"
#include "platform/interface/InterfaceElement.h"

#include <string>
#include <vector>

/// Collects what is wrong with one document while it is read. One per reading; none of its findings is lost.
class InterfaceReport {
public:
    explicit InterfaceReport(std::string path) : m_path(std::move(path)) {}

    [[nodiscard]] const std::string& path() const { return m_path; }
    /// The message is told after the element: `<label id="abc">: MESSAGE`.
    void error(const InterfaceElement& element, const std::string& message);
    void warning(const InterfaceElement& element, const std::string& message);
    void add(Finding finding) { m_findings.push_back(std::move(finding)); }

    [[nodiscard]] bool hasErrors() const;
    [[nodiscard]] const Findings& findings() const { return m_findings; }
    /// All errors, one a line, without a line break at the end.
    [[nodiscard]] std::string errorText() const;

private:
    std::string m_path;
    Findings m_findings;
};
