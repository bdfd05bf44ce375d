#pragma once

#include "platform/foundation/PixelGrid.h"
#include "platform/graphics/Bitmap.h"
#include "platform/uikit/window/DirtyRegion.h"

#include <cstddef>
#include <vector>

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

/// Keeps a picture of a window up to date: moves the pixels of what was scrolled and paints what changed, nothing else.
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

private:
    void take(const WindowChange& change, DirtyRegion& dirty);
    void move(const ScrollMove& plan, CGFloat distance, DirtyRegion& dirty);
    void paint(UIWindow& window, const PixelRect& rect);

    PixelGrid m_grid;
    Bitmap m_bitmap;
    bool m_paintAll = true;
    WindowFrame m_lastFrame;
};
