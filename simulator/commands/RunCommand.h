#pragma once

#include "simulator/commands/RunOptions.h"

/// Plays flows and tells what happened on standard error and, where wanted, in a report.
[[nodiscard]] ExitStatus runFlows(const RunOptions& options);
