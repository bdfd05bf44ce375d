#pragma once

#include "simulator/commands/RunOptions.h"
#include "simulator/conversation/Device.h"
#include "simulator/flows/Flow.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// What a command line gives every flow: the bundle, perhaps a device and a content file to show. Made once the options
/// have been found good.
struct Stage {
    std::filesystem::path bundle;
    Device device;
    bool deviceIsAsked = false; // the command line names it; then it stands in for a flow's own
    std::vector<ResourceOverride> overrides;
};

/// The player group that a content file is shown for: the one it is named after, or else the one that is shown first.
[[nodiscard]] std::string groupFor(const std::filesystem::path& content);

/// Sets the bundle up for a flow and gives the device that it is played on.
[[nodiscard]] Device setStage(const Stage& stage, const Flow& flow);

/// Checks options and bundle; says on standard error what is wrong. `status` tells why there is no stage, or with one
/// whether the bundle's own data has faults.
[[nodiscard]] std::optional<Stage> prepareStage(const RunOptions& options, ExitStatus& status);
