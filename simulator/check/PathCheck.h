#pragma once

#include "platform/foundation/Finding.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

/// What is wrong in a number of files, tidied, and how many they were.
struct CheckedFiles {
    Findings findings;
    std::size_t count = 0;
    std::size_t known = 0; // findings that were left out
    bool isWithoutScreen = false;
};

/// Checks the main bundle: its content, interface documents and catalogue.
[[nodiscard]] CheckedFiles checkWholeBundle();
/// Checks the flows that stand directly in a folder; none where there is no such folder.
[[nodiscard]] CheckedFiles checkFlowsIn(const std::string& folder);
/// Checks files of any kind, each by itself, and all that stand in folders: lists (.json), interface documents,
/// catalogues and flows. A name that stands for nothing that can be checked is a finding.
[[nodiscard]] CheckedFiles checkPaths(const std::vector<std::string>& paths);
