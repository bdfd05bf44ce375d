#pragma once

#include "platform/foundation/Geometry.h"

#include <vector>

class UIView;

/// What moving the pixels of a scroll view takes, found out from the tree around it.
struct ScrollMove {
    /// The visible part of the scroll view, in the window's coordinates.
    CGRect area;
    /// Whether the pixels of `area` are the scrolled content over one even colour, so that they can be moved.
    bool canMovePixels = true;
    /// What is drawn over `area` and stays where it is, in the window's coordinates.
    std::vector<CGRect> overlays;
};

[[nodiscard]] ScrollMove scrollMoveFor(const UIView& scrolled);
