#include "platform/interface/InterfaceReport.h"

#include <algorithm>

void InterfaceReport::error(const InterfaceElement& element, const std::string& message) {
    add({Severity::error, m_path, element.place, element.describe() + ": " + message});
}

void InterfaceReport::warning(const InterfaceElement& element, const std::string& message) {
    add({Severity::warning, m_path, element.place, element.describe() + ": " + message});
}

bool InterfaceReport::hasErrors() const {
    return std::any_of(m_findings.begin(), m_findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::error; });
}

std::string InterfaceReport::errorText() const {
    std::string text;
    for (const Finding& finding : m_findings) {
        if (finding.severity == Severity::error) {
            text.append(text.empty() ? "" : "\n").append(finding.describe());
        }
    }
    return text;
}
