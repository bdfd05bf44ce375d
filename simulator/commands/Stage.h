#pragma once

#include "simulator/commands/RunOptions.h"
#include "simulator/conversation/Device.h"
#include "simulator/flows/Flow.h"

#include <optional>
#include <vector>

/// What a command line gives every flow: the bundle, the device and the content file to show. Made once the options
/// have been found good.
struct Stage {
    std::filesystem::path bundle;
    Device device;
    std::vector<ResourceOverride> overrides;
};

/// Checks options and bundle; says on standard error what is wrong. `status` tells why there is no stage, or with one
/// whether the bundle's own data has faults.
[[nodiscard]] std::optional<Stage> prepareStage(const RunOptions& options, ExitStatus& status);
