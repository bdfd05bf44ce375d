#pragma once

#include <string>

/// Something to mend in an interface document or in the asset catalogue.
struct InterfaceFinding {
    enum class Severity { error, warning };

    std::string path;
    int line = 0;   // counted from 1; 0 when the whole file is meant
    int column = 0; // counted from 1
    Severity severity = Severity::error;
    std::string message;

    /// "path:line:column: error: message"
    [[nodiscard]] std::string describe() const;
};
