#include "bench/limit/Frame.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <sys/mman.h>

namespace limit {

Frame::Frame(int width, int height) : m_width(width), m_height(height), m_rowLength(static_cast<std::size_t>(width)) {
    const std::size_t bytes = m_rowLength * static_cast<std::size_t>(height) * 4;
    void* memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        std::fputs("limit: no memory\n", stderr);
        std::exit(1);
    }
    madvise(memory, bytes, MADV_HUGEPAGE);
    m_pixels = static_cast<std::uint32_t*>(memory);
    m_surface = cairo_image_surface_create_for_data(static_cast<unsigned char*>(memory), CAIRO_FORMAT_RGB24, width,
                                                    height, width * 4);
    m_cairo = cairo_create(m_surface);
}

void Frame::populate() {
#ifdef MADV_POPULATE_WRITE
    madvise(m_pixels, m_rowLength * static_cast<std::size_t>(m_height) * 4, MADV_POPULATE_WRITE);
#endif
}

void Frame::shift(int top, int bottom, int dy) {
    const int count = bottom - top - std::abs(dy);
    const int from = dy < 0 ? top - dy : top;
    std::memmove(row(from + dy), row(from), static_cast<std::size_t>(count) * m_rowLength * 4);
}

bool Frame::write(const char* path) const {
    return cairo_surface_write_to_png(m_surface, path) == CAIRO_STATUS_SUCCESS;
}

} // namespace limit
