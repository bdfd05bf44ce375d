#pragma once

#include "platform/foundation/Finding.h"

/// Tidied, with what is said of more than three elements of a file said once: of the first, with the lines of others.
[[nodiscard]] Findings folded(const Findings& findings);
