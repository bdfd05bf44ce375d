#pragma once

#include "platform/foundation/Geometry.h"
#include "simulator/flows/FlowValue.h"

#include <string>

/// A place in the extension's window, in points or as a share of its size.
struct FlowPoint {
    double x = 0;
    double y = 0;
    bool relative = false; // x and y are per cent

    [[nodiscard]] CGPoint in(CGSize window) const;
};

/// "120,40" or "50%,80%".
[[nodiscard]] FlowPoint readPoint(const FlowValue& value);
