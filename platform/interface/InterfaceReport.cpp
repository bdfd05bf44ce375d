#include "platform/interface/InterfaceReport.h"

#include <algorithm>

using Severity = InterfaceFinding::Severity;

void InterfaceReport::error(const InterfaceElement& element, const std::string& message) {
    add({m_path, element.line, element.column, Severity::error, element.describe() + ": " + message});
}

void InterfaceReport::warning(const InterfaceElement& element, const std::string& message) {
    add({m_path, element.line, element.column, Severity::warning, element.describe() + ": " + message});
}

bool InterfaceReport::hasErrors() const {
    return std::any_of(m_findings.begin(), m_findings.end(),
                       [](const InterfaceFinding& finding) { return finding.severity == Severity::error; });
}

std::string InterfaceReport::errorText() const {
    std::string text;
    for (const InterfaceFinding& finding : m_findings) {
        if (finding.severity == Severity::error) {
            text.append(text.empty() ? "" : "\n").append(finding.describe());
        }
    }
    return text;
}
