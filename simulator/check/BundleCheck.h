#pragma once

#include "platform/foundation/Result.h"

#include <optional>
#include <string>

/// What is wrong with the data of the main bundle.
struct BundleFindings {
    Findings all;
    bool canLaunch = true; // false: an interface document would stop the extension
    std::size_t files = 0; // that were looked at; the catalogue counts as one
};

/// Why the main bundle's Info.plist names no storyboard to begin with; none when it does.
[[nodiscard]] std::optional<Finding> faultOfInfo();
/// Reads every interface document, the asset catalogue and every content file of the main bundle. Fails when it names
/// no storyboard to begin with, or when `needed`, a content file in it that somebody wants to see, cannot be read.
[[nodiscard]] Result<BundleFindings> checkMainBundle(const std::optional<std::string>& needed = std::nullopt);
