#pragma once

#include "simulator/flows/Flow.h"

#include <filesystem>
#include <vector>

/// Makes the folder the main bundle of this process, with some resources replaced, and the extension's and the
/// platform's classes known by name. Begins afresh at every call; nothing of an earlier extension may be alive.
void openExtensionBundle(const std::filesystem::path& folder, const std::vector<ResourceOverride>& overrides);
