#include "platform/graphics/Bitmap.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include <sys/mman.h>

namespace {

/// From here on memory comes straight from the system, in large pages where it has them: a frame buffer of 12 MB then
/// costs a handful of page faults instead of three thousand.
constexpr std::size_t largeBytes = std::size_t{1} << 20;

std::size_t bytesFor(std::size_t pixels) {
    return std::max<std::size_t>(1, pixels) * sizeof(std::uint32_t);
}

void* allocate(std::size_t bytes) {
    if (bytes < largeBytes) {
        return std::calloc(1, bytes);
    }
    void* memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        return nullptr;
    }
    madvise(memory, bytes, MADV_HUGEPAGE); // a wish; without it only the first drawing is slower
    return memory;
}

} // namespace

void Bitmap::Release::operator()(std::uint32_t* memory) const {
    if (bytes < largeBytes) {
        std::free(memory);
    } else {
        munmap(memory, bytes);
    }
}

Bitmap::Bitmap(int width, int height) : m_width(std::max(0, width)), m_height(std::max(0, height)) {
    const std::size_t bytes = bytesFor(count());
    void* memory = allocate(bytes);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    m_pixels = {static_cast<std::uint32_t*>(memory), Release{bytes}};
}

void Bitmap::populate() {
#ifdef MADV_POPULATE_WRITE
    if (bytesFor(count()) >= largeBytes) {
        madvise(m_pixels.get(), bytesFor(count()), MADV_POPULATE_WRITE);
    }
#endif
}

void Bitmap::scrollRows(const PixelRect& area, int dy) {
    const int left = std::max(0, area.x);
    const int right = std::min(m_width, area.x + area.width);
    const int top = std::max(0, area.y);
    const int bottom = std::min(m_height, area.y + area.height);
    if (left >= right || dy == 0) {
        return;
    }
    const auto bytes = static_cast<std::size_t>(right - left) * sizeof(std::uint32_t);
    if (dy > 0) {
        for (int y = bottom - 1; y - dy >= top; --y) {
            std::memcpy(row(y) + left, row(y - dy) + left, bytes);
        }
    } else {
        for (int y = top; y - dy < bottom; ++y) {
            std::memcpy(row(y) + left, row(y - dy) + left, bytes);
        }
    }
}

Bitmap Bitmap::copy() const {
    Bitmap other(m_width, m_height);
    std::copy_n(m_pixels.get(), count(), other.m_pixels.get());
    return other;
}

bool operator==(const Bitmap& one, const Bitmap& other) {
    return one.m_width == other.m_width && one.m_height == other.m_height &&
           std::equal(one.pixels().begin(), one.pixels().end(), other.pixels().begin());
}
