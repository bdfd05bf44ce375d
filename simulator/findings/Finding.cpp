#include "simulator/findings/Finding.h"

#include <algorithm>

bool hasErrors(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::error; });
}
