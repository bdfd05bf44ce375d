#pragma once

#include "platform/graphics/Bitmap.h"
#include "platform/uikit/window/DirtyRegion.h"
#include "simulator/live/LiveScreen.h"

#include <cstdint>
#include <optional>

/// What one page has not been shown yet: changes are joined until a picture is taken. At first it is the whole screen.
class PendingPicture {
public:
    void add(const ScreenChange& change, const PixelRect& screen);
    [[nodiscard]] bool isEmpty() const { return !m_whole && m_moves.empty() && m_dirty.rects().empty(); }
    /// The message that brings the page up to date with the screen, as docs/live.md describes it.
    [[nodiscard]] std::vector<std::uint8_t> take(const Bitmap& screen, std::uint32_t number);

private:
    void move(const WindowFrame::Move& move);

    bool m_whole = true;
    std::vector<WindowFrame::Move> m_moves;
    DirtyRegion m_dirty{{}};
};
