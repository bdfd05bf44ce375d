#include "simulator/findings/Finding.h"

#include <algorithm>

std::string describe(const Finding& finding) {
    std::string text = finding.file;
    if (finding.line > 0) {
        text += ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column);
    }
    return text + (finding.severity == Severity::error ? ": error: " : ": warning: ") + finding.message;
}

bool hasErrors(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::error; });
}
