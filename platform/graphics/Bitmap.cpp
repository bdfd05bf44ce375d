#include "platform/graphics/Bitmap.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

#include <sys/mman.h>

namespace {

/// From here on memory comes straight from the system, in large pages where it has them: a frame buffer of 12 MB then
/// costs a handful of page faults instead of three thousand.
constexpr std::size_t largeBytes = std::size_t{1} << 20;

std::size_t bytesFor(int width, int height) {
    return std::max<std::size_t>(1, static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) *
           sizeof(std::uint32_t);
}

/// Null when there is none, or when a row has more bytes than the drawing libraries can count.
std::uint32_t* allocate(int width, int height) {
    const std::size_t bytes = bytesFor(width, height);
    if (width > std::numeric_limits<int>::max() / 4) {
        return nullptr;
    }
    if (bytes < largeBytes) {
        return static_cast<std::uint32_t*>(std::calloc(1, bytes));
    }
    void* memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        return nullptr;
    }
    madvise(memory, bytes, MADV_HUGEPAGE); // a wish; without it only the first drawing is slower
    return static_cast<std::uint32_t*>(memory);
}

Bitmap orStop(Result<Bitmap> made) {
    if (!made) {
        fatalError(made.failure().what);
    }
    return std::move(made).value();
}

} // namespace

void Bitmap::Release::operator()(std::uint32_t* memory) const {
    if (bytes < largeBytes) {
        std::free(memory);
    } else {
        munmap(memory, bytes);
    }
}

Result<Bitmap> Bitmap::make(int width, int height) {
    width = std::max(0, width);
    height = std::max(0, height);
    std::uint32_t* memory = allocate(width, height);
    if (memory == nullptr) {
        return Failure{"no memory for a picture of " + std::to_string(width) + " x " + std::to_string(height) +
                       " pixels"};
    }
    return Bitmap(width, height, memory);
}

Bitmap::Bitmap(int width, int height, std::uint32_t* memory)
    : m_width(width), m_height(height), m_pixels(memory, Release{bytesFor(width, height)}) {}

Bitmap::Bitmap(int width, int height) : Bitmap(orStop(make(width, height))) {}

void Bitmap::populate() {
#ifdef MADV_POPULATE_WRITE
    if (bytesFor(m_width, m_height) >= largeBytes) {
        madvise(m_pixels.get(), bytesFor(m_width, m_height), MADV_POPULATE_WRITE);
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

bool operator==(const Bitmap& one, const Bitmap& other) {
    return one.m_width == other.m_width && one.m_height == other.m_height &&
           std::equal(one.pixels().begin(), one.pixels().end(), other.pixels().begin());
}
