#pragma once

#include <compare>
#include <optional>
#include <string>
#include <vector>

/// A place in a text file, counted from 1; columns count characters (code points), not bytes.
struct TextPlace {
    int line = 1;
    int column = 1;

    friend auto operator<=>(const TextPlace&, const TextPlace&) = default;
};

enum class Severity { error, warning };

/// Something to mend in a file that a person wrote: content, an interface document, the asset catalogue, a flow.
struct Finding {
    Severity severity = Severity::error;
    std::string path;               // may be empty: then no file is to blame
    std::optional<TextPlace> place; // none: the file as a whole
    std::string what;               // one line, without the place
    std::string rule{};             // of the checks, that is broken; empty for what no rule is about

    /// "path:line:column: error: what [rule]", for whoever prints.
    [[nodiscard]] std::string describe() const;
};

using Findings = std::vector<Finding>;

[[nodiscard]] bool hasErrors(const Findings& findings);
/// The errors among them, one a line, without a line break at the end.
[[nodiscard]] std::string describeErrors(const Findings& findings);

/// Why something could not be done, in one line for people, and where in the text that was read, if there was one.
struct Failure {
    std::string what;
    std::optional<TextPlace> place = std::nullopt;

    /// "line 3, column 14: what".
    [[nodiscard]] std::string describe() const;
    /// The same, told of a file.
    [[nodiscard]] Finding in(std::string path, Severity severity = Severity::error) const;
};
