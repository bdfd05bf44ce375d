#pragma once

#include "simulator/parlor/Commands.h"

/// Runs this program anew for each list of arguments, as many at a time as the machine has processors. What the
/// extension reads once a process (the height of the screen) is then read for each. The worst of what came of them:
/// each tells by itself what failed or was found.
[[nodiscard]] CommandResult runInOwnProcesses(const std::vector<std::vector<std::string>>& argumentLists);
