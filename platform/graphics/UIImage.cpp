#include "platform/graphics/UIImage.h"

#include "platform/graphics/AssetCatalog.h"
#include "platform/graphics/ImageDecoder.h"
#include "platform/graphics/PNG.h"

#include <algorithm>
#include <utility>

namespace {

/// Larger ones are no icons, and decoded ahead they could hold much memory for nothing; in pixels.
constexpr CGFloat mostDecodedAhead = 256 * 256;

/// In points, from the first file whose header can be read.
CGSize sizeOf(const std::vector<ImageFile>& files) {
    for (const ImageFile& file : files) {
        const std::optional<PixelSize> pixels = readPNGSize(file.path);
        if (pixels.has_value() && file.scale > 0) {
            const CGFloat scale = file.scale;
            return {pixels->width / scale, pixels->height / scale};
        }
    }
    return {};
}

} // namespace

UIImage::UIImage(std::string name, std::vector<ImageFile> files) : m_name(std::move(name)), m_files(std::move(files)) {
    std::sort(m_files.begin(), m_files.end(),
              [](const auto& one, const auto& other) { return one.scale < other.scale; });
}

std::shared_ptr<UIImage> UIImage::imageNamed(std::string_view name) {
    AssetCatalog* catalog = AssetCatalog::current();
    return catalog == nullptr ? nullptr : catalog->imageNamed(name);
}

CGSize UIImage::size() const {
    if (!m_size) {
        m_size = sizeOf(m_files);
    }
    return *m_size;
}

void UIImage::prepareForDisplay(CGFloat deviceScale) const {
    const ImageFile* file = fileForScale(deviceScale);
    if (file != nullptr && size().width * file->scale * size().height * file->scale <= mostDecodedAhead) {
        ImageDecoder::shared().begin(file->path);
    }
}

const ImageFile* UIImage::fileForScale(CGFloat deviceScale) const {
    const auto found = std::find_if(m_files.begin(), m_files.end(),
                                    [deviceScale](const ImageFile& file) { return file.scale >= deviceScale; });
    return m_files.empty() ? nullptr : found == m_files.end() ? &m_files.back() : &*found;
}
