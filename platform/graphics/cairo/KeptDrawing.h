#pragma once

#include "platform/graphics/Bitmap.h"
#include "platform/graphics/DrawingContext.h"

#include <vector>

class CairoCanvas;

/// The last drawing of a view with an opaque ground, and the picture of all its paths but the last one: a drawing that
/// adds to them or changes the last costs no more than that. Pixels are those of drawing every path. Owned by whoever
/// paints the view.
class KeptDrawing {
public:
    /// Where a view stands. What is kept at one place is worth nothing at another.
    struct Place {
        CGRect inWindow;
        PixelRect visible; // where superviews and the window cut it, or more
        friend bool operator==(const Place&, const Place&) = default;
    };

    /// Draws the operations (there are some) over the ground, which fills `rect`.
    void draw(CairoCanvas& canvas, const CGRect& rect, const Place& place, const RGBA& ground,
              std::vector<PathOperation> operations);
    /// What drawing these operations would change, in their own coordinates; absent when that may be anything.
    [[nodiscard]] std::optional<CGRect> changedBy(const std::vector<PathOperation>& operations,
                                                  const Place& place) const;

private:
    [[nodiscard]] bool isContinuedBy(const std::vector<PathOperation>& operations, const Place& place) const;
    void drawWhole(CairoCanvas& canvas, const PathOperation& operation, const PixelRect& area) const;

    std::vector<PathOperation> m_operations;
    Place m_place;
    RGBA m_ground;
    std::optional<Bitmap> m_picture;
};
