#pragma once

#include <cairo.h>

#include <cstdint>

namespace limit {

/// The picture: memory in large pages, and a Cairo context over it. One a process.
class Frame {
public:
    Frame(int width, int height);
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] int height() const { return m_height; }
    [[nodiscard]] cairo_t* cairo() const { return m_cairo; }
    [[nodiscard]] std::uint32_t* row(int y) const { return m_pixels + static_cast<std::size_t>(y) * m_rowLength; }
    /// Takes the page faults; on any thread, beside the drawing.
    void populate();
    /// Moves whole rows from `top` to `bottom` up (negative) or down.
    void shift(int top, int bottom, int dy);
    bool write(const char* path) const;

private:
    int m_width;
    int m_height;
    std::size_t m_rowLength;
    std::uint32_t* m_pixels;
    cairo_surface_t* m_surface;
    cairo_t* m_cairo;
};

} // namespace limit
