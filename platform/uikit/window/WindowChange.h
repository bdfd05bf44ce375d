#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/uikit/window/ScrollMove.h"

#include <memory>

class UIView;

/// One thing that changed on a window since its last frame: an area to be painted again, or a scroll view whose content
/// moved. The order of changes counts, since a later move carries earlier ones along.
struct WindowChange {
    CGRect area;                          // of a repaint, in the window's coordinates
    std::weak_ptr<const UIView> scrolled; // of a move
    CGFloat distance = 0;                 // of a move: how far the content went down, in points
    ScrollMove move;                      // as the tree was at that moment

    [[nodiscard]] bool isMove() const { return distance != 0; }
};
