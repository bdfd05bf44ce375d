#pragma once

#include "platform/interface/InterfaceFinding.h"

#include <vector>

/// Something to mend in a file that a person wrote: a flow or a content file as much as an interface document.
using Finding = InterfaceFinding;
using Severity = InterfaceFinding::Severity;

[[nodiscard]] bool hasErrors(const std::vector<Finding>& findings);
