#pragma once

#include "platform/foundation/PixelGrid.h"
#include "platform/graphics/Bitmap.h"
#include "platform/graphics/cairo/KeptDrawing.h"
#include "platform/uikit/window/DirtyRegion.h"

#include <cstddef>
#include <memory>
#include <vector>

class UIView;
class UIWindow;
struct ScrollMove;
struct WindowChange;

/// What a frame did to the picture, in device pixels: first its moves, in order, then what it painted.
struct WindowFrame {
    struct Move {
        PixelRect area;
        int dy = 0; // how far its content went down within it
    };
    std::vector<Move> moves;
    std::vector<PixelRect> painted;

    [[nodiscard]] std::size_t paintedPixels() const;
};

/// Keeps a picture of a window up to date: moves the pixels of what was scrolled and paints what changed, nothing else;
/// of a view that draws paths on an opaque ground, what its drawing adds to the last one (see KeptDrawing).
/// The picture is byte for byte what painting everything anew would give, as long as nothing curved stands half out of
/// a scroll view that it covers: the antialiasing of a row depends on all of its edges. Made and owned by the host, one
/// per window.
class WindowRenderer {
public:
    /// `size` in points, `scale` in device pixels a point. The first frame paints everything.
    WindowRenderer(CGSize size, int scale);

    /// Lays the window out and draws its next frame. False when nothing had changed.
    bool render(UIWindow& window);
    /// Has the system give the picture its memory now, which takes milliseconds. Any thread, also beside the first
    /// frame.
    void populate() { m_bitmap.populate(); }

    [[nodiscard]] const Bitmap& bitmap() const { return m_bitmap; }
    /// For whoever shows the picture elsewhere.
    [[nodiscard]] const WindowFrame& lastFrame() const { return m_lastFrame; }
    /// How many pictures are kept of what views have drawn with paths: one a view, until it has left the window.
    [[nodiscard]] std::size_t keptDrawings() const { return m_kept.size(); }

private:
    struct Kept {
        std::weak_ptr<UIView> view;
        KeptDrawing drawing;
    };
    using KeptDrawings = std::vector<Kept>;

    void take(const WindowChange& change, DirtyRegion& dirty);
    [[nodiscard]] CGRect areaOf(const WindowChange& change);
    [[nodiscard]] KeptDrawing::Place placeOf(const UIView& view) const;
    [[nodiscard]] KeptDrawings::iterator keptOf(const UIView& view);
    void drawPaths(CairoCanvas& canvas, UIView& view, const RGBA& ground, std::vector<PathOperation> paths);
    void move(const ScrollMove& plan, CGFloat distance, DirtyRegion& dirty);
    void paint(UIWindow& window, const PixelRect& rect);

    PixelGrid m_grid;
    Bitmap m_bitmap;
    bool m_paintAll = true;
    WindowFrame m_lastFrame;
    KeptDrawings m_kept;
};
