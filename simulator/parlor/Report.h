#pragma once

#include "simulator/flows/FlowPlayer.h"

/// What happened in all flows, as JSON text for other programs.
[[nodiscard]] std::string reportText(const std::vector<FlowResult>& results);
