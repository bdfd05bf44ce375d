#pragma once

#include "platform/foundation/Geometry.h"

#include <memory>

class UIView;

/// One thing that changed on a window since its last frame: an area to be painted again, or a scroll view whose content
/// moved. The order of changes counts, since a later move carries earlier ones along.
struct WindowChange {
    CGRect area;                          // of a repaint, in the window's coordinates
    std::weak_ptr<const UIView> scrolled; // of a move; the view may be gone by the time the frame is drawn
    CGFloat distance = 0;                 // of a move: how far the content went down, in points

    [[nodiscard]] bool isMove() const { return distance != 0; }
};
