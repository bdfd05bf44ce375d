#pragma once

#include "platform/foundation/Result.h"

#include <filesystem>
#include <string>
#include <vector>

/// A finding that is there on purpose, with the reason, as a reviewer reads it.
struct KnownFinding {
    std::string rule;
    std::string about; // part of what the finding says
    std::string reason;
};

/// Of a JSON file: a list of objects with these three texts.
[[nodiscard]] Result<std::vector<KnownFinding>> readKnownFindings(const std::filesystem::path& file);
/// Takes the known ones out of the findings; how many they were.
[[nodiscard]] std::size_t takeKnownOut(Findings& findings, const std::vector<KnownFinding>& known);
