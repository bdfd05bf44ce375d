#pragma once

#include "simulator/flows/Flow.h"

#include <optional>
#include <string>
#include <vector>

/// The files that a command line names; a folder stands for the flows in it, by name.
[[nodiscard]] std::vector<std::string> flowFiles(const std::vector<std::string>& named);

/// All flows, or none when one of them cannot be read; standard error then says why.
[[nodiscard]] std::optional<std::vector<Flow>> readFlows(const std::vector<std::string>& files);
