#pragma once

#include "platform/graphics/Bitmap.h"
#include "platform/graphics/RecentCache.h"

#include <memory>
#include <string>

struct _cairo_surface;

/// Cairo's view of a bitmap's own pixels; the caller destroys it before the bitmap. A const bitmap is only read from.
[[nodiscard]] _cairo_surface* surfaceOver(const Bitmap& bitmap);

/// The pictures that were drawn last, decoded and scaled to the pixels they cover on the device, 24 MB at most. A file
/// that cannot be read is remembered as nothing. One for the process, main thread only.
class ScaledImages {
public:
    static ScaledImages& shared();

    /// Null when the file cannot be read.
    [[nodiscard]] std::shared_ptr<const Bitmap> find(const std::string& path, int width, int height);
    /// The files may have changed.
    void forget() { m_kept = Kept(most); }

private:
    using Kept = RecentCache<std::shared_ptr<const Bitmap>>;
    static constexpr std::size_t most = std::size_t{24} << 20; // bytes

    Kept m_kept{most};
};
