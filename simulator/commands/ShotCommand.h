#pragma once

#include "simulator/commands/RunOptions.h"

#include <optional>
#include <string>

/// What one picture is to show.
struct ShotOptions {
    std::optional<std::string> group; // absent: the one the content file is named after, or the first
    bool dark = false;
    std::string style = "expanded";
    bool openDropdown = false;
    double scroll = 0; // points, of the list of modes
    bool bare = false;
    std::string file; // "-": standard output
};

/// Takes one picture of the screen.
[[nodiscard]] ExitStatus takeShot(const RunOptions& options, const ShotOptions& shot);
