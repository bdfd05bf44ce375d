#pragma once

#include "simulator/flows/Flow.h"

#include <string>

/// What is played for somebody's own content file when no flow is named: the extension opens, the group that the file
/// is shown for is chosen, and the first of its modes is tapped.
[[nodiscard]] Flow contentFlow(const std::string& content);
