#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/foundation/Result.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

/// Pixels in memory: premultiplied ARGB, 32 bits in the machine's byte order, rows top down. New ones are transparent.
class Bitmap {
public:
    /// Negative sizes count as zero. A size for which the system has no memory stops the program.
    Bitmap(int width, int height);
    /// For a size that somebody else chose: fails when the system has no memory for it.
    [[nodiscard]] static Result<Bitmap> make(int width, int height);

    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] int height() const { return m_height; }
    /// Bytes from one row to the next.
    [[nodiscard]] int stride() const { return m_width * 4; }
    [[nodiscard]] std::uint32_t* row(int y) { return m_pixels.get() + offsetOf(y); }
    [[nodiscard]] const std::uint32_t* row(int y) const { return m_pixels.get() + offsetOf(y); }
    [[nodiscard]] std::uint32_t pixel(int x, int y) const { return row(y)[x]; }
    [[nodiscard]] std::span<const std::uint32_t> pixels() const { return {m_pixels.get(), count()}; }

    /// Asks the system for the memory now instead of at the first drawing. Any thread, also while another draws.
    void populate();
    /// Moves the pixels of `area` (clipped to the bitmap) by `dy` rows within it; positive is down. The rows it leaves
    /// behind keep their old pixels.
    void scrollRows(const PixelRect& area, int dy);
    /// The same size and the same pixels.
    friend bool operator==(const Bitmap& one, const Bitmap& other);

private:
    struct Release {
        std::size_t bytes;
        void operator()(std::uint32_t* memory) const;
    };

    Bitmap(int width, int height, std::uint32_t* memory);

    [[nodiscard]] std::size_t count() const { return offsetOf(m_height); }
    [[nodiscard]] std::size_t offsetOf(int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width);
    }

    int m_width;
    int m_height;
    std::unique_ptr<std::uint32_t, Release> m_pixels;
};
