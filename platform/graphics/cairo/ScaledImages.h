#pragma once

#include "platform/graphics/Bitmap.h"
#include "platform/graphics/RecentCache.h"

#include <memory>
#include <string>

/// The pictures that were drawn last, decoded and scaled to the pixels they cover on the device, 24 MB at most. A file
/// that cannot be read is remembered as nothing. One for the process, main thread only.
class ScaledImages {
public:
    static ScaledImages& shared();

    /// Null when the file cannot be read.
    [[nodiscard]] std::shared_ptr<const Bitmap> find(const std::string& path, int width, int height);
    [[nodiscard]] std::size_t bytes() const { return m_kept.cost(); }

    static constexpr std::size_t capacity = std::size_t{24} << 20;

private:
    RecentCache<std::shared_ptr<const Bitmap>> m_kept{capacity};
};
