#include "simulator/live/PendingPicture.h"

#include <algorithm>
#include <cstdlib>

namespace {

/// Beyond this many a page is better served with the areas as a whole.
constexpr std::size_t mostMoves = 16;

/// Appends numbers, the lowest byte first.
class Message {
public:
    explicit Message(std::size_t expectedBytes) { m_bytes.reserve(expectedBytes); }

    void byte(int number) { m_bytes.push_back(static_cast<std::uint8_t>(number)); }
    void half(int number) {
        byte(number & 0xFF);
        byte((number >> 8) & 0xFF);
    }
    void word(std::uint32_t number) {
        half(static_cast<int>(number & 0xFFFFu));
        half(static_cast<int>(number >> 16));
    }
    void rect(const PixelRect& rect) {
        half(rect.x);
        half(rect.y);
        half(rect.width);
        half(rect.height);
    }
    /// The screen is opaque, so that its pixels are the same with and without premultiplication.
    void pixels(const Bitmap& screen, const PixelRect& rect) {
        std::size_t at = m_bytes.size();
        m_bytes.resize(at + rect.area() * 4);
        for (int y = rect.y; y < rect.y + rect.height; ++y) {
            const std::uint32_t* const row = screen.row(y) + rect.x;
            for (int x = 0; x < rect.width; ++x, at += 4) {
                m_bytes[at] = static_cast<std::uint8_t>(row[x] >> 16);
                m_bytes[at + 1] = static_cast<std::uint8_t>(row[x] >> 8);
                m_bytes[at + 2] = static_cast<std::uint8_t>(row[x]);
                m_bytes[at + 3] = 0xFF;
            }
        }
    }

    [[nodiscard]] std::vector<std::uint8_t> take() { return std::move(m_bytes); }

private:
    std::vector<std::uint8_t> m_bytes;
};

std::size_t sizeOf(const std::vector<PixelRect>& rects) {
    std::size_t bytes = 256;
    for (const PixelRect& rect : rects) {
        bytes += 8 + rect.area() * 4;
    }
    return bytes;
}

} // namespace

void PendingPicture::add(const ScreenChange& change, const PixelRect& screen) {
    if (m_whole) {
        return;
    }
    if (change.whole) {
        m_whole = true;
        return;
    }
    if (isEmpty()) {
        m_dirty = DirtyRegion(screen);
    }
    for (const WindowFrame::Move& one : change.moves) {
        move(one);
    }
    for (const PixelRect& area : change.areas) {
        m_dirty.add(area);
    }
}

/// Two moves of one area in a row are one: rows that left it meanwhile are dirty by now.
void PendingPicture::move(const WindowFrame::Move& move) {
    m_dirty.shift(move.area, move.dy);
    if (!m_moves.empty() && m_moves.back().area == move.area) {
        m_moves.back().dy += move.dy;
        if (std::abs(m_moves.back().dy) >= move.area.height) {
            m_moves.pop_back();
            m_dirty.add(move.area);
        }
    } else {
        m_moves.push_back(move);
    }
    m_whole = m_moves.size() > mostMoves;
}

std::vector<std::uint8_t> PendingPicture::take(const Bitmap& screen, std::uint32_t number) {
    const PixelRect all{0, 0, screen.width(), screen.height()};
    const std::vector<PixelRect> rects = m_whole ? std::vector{all} : m_dirty.rects();
    const std::vector<WindowFrame::Move> moves =
        m_whole ? std::vector<WindowFrame::Move>() : std::exchange(m_moves, {});
    Message message(sizeOf(rects));
    message.byte(1); // a picture
    message.byte(m_whole ? 1 : 0);
    message.half(all.width);
    message.half(all.height);
    message.word(number);
    message.half(static_cast<int>(moves.size()));
    for (const WindowFrame::Move& move : moves) {
        message.rect(move.area);
        message.half(move.dy);
    }
    message.half(static_cast<int>(rects.size()));
    for (const PixelRect& rect : rects) {
        message.rect(rect);
        message.pixels(screen, rect);
    }
    *this = PendingPicture();
    m_whole = false;
    return message.take();
}
