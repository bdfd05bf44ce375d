#include "platform/foundation/Finding.h"

#include <algorithm>

std::string Finding::describe() const {
    std::string text = path;
    if (place) {
        text += ":" + std::to_string(place->line) + ":" + std::to_string(place->column);
    }
    text += text.empty() ? "" : ": ";
    text += severity == Severity::error ? "error: " : "warning: ";
    return text + what + (rule.empty() ? "" : " [" + rule + "]");
}

bool hasErrors(const Findings& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::error; });
}

std::string describeErrors(const Findings& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        if (finding.severity == Severity::error) {
            text += (text.empty() ? "" : "\n") + finding.describe();
        }
    }
    return text;
}

std::string Failure::describe() const {
    if (!place) {
        return what;
    }
    return "line " + std::to_string(place->line) + ", column " + std::to_string(place->column) + ": " + what;
}

Finding Failure::in(std::string path, Severity severity) const {
    return {severity, std::move(path), place, what};
}
