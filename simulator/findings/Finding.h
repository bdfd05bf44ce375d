#pragma once

#include <string>
#include <vector>

enum class Severity { error, warning };

/// Something to mend in a file that a person wrote: a flow, an interface document, the catalogue, a content file.
struct Finding {
    std::string file;
    int line = 0;   // counted from 1; 0 when the whole file is meant
    int column = 0; // counted from 1
    Severity severity = Severity::error;
    std::string message;
};

/// "file:line:column: error: message", which editors and terminals make clickable.
[[nodiscard]] std::string describe(const Finding& finding);
[[nodiscard]] bool hasErrors(const std::vector<Finding>& findings);
