#pragma once

#include "platform/foundation/Finding.h"

#include <span>
#include <string_view>
#include <vector>

/// Something that the checks look for. All of them stand in one table, which the command line, the documents and the
/// findings share.
struct Rule {
    std::string_view id; // "content.icon"; the part before the point says what is looked at
    Severity severity;
    std::string_view meaning; // why it matters and what to do
    std::string_view example; // a finding
};

[[nodiscard]] std::span<const Rule> rules();
/// Null when there is none of that name.
[[nodiscard]] const Rule* ruleNamed(std::string_view id);

/// A finding of a rule, with the rule's severity. A rule that is not in the table stops the program.
[[nodiscard]] Finding findingOf(std::string_view rule, std::string path, std::optional<TextPlace> place,
                                std::string what);
/// Says of findings without a rule that they are of this one.
void nameRule(Findings& findings, std::string_view rule);

[[nodiscard]] std::string inQuotes(std::string_view text);
/// `; did you mean "NAME"?`, or nothing.
[[nodiscard]] std::string suggestionInQuotes(std::string_view wanted, const std::vector<std::string>& known);

/// Sorts by file and place, and leaves one of several that say the same.
void tidy(Findings& findings);
