#pragma once

#include "simulator/commands/RunOptions.h"

/// Prints the view tree after the extension was opened, or after the flow that is named. The tree alone goes to
/// standard output; the extension's debug lines go to standard error meanwhile.
[[nodiscard]] ExitStatus printTree(const RunOptions& options);
