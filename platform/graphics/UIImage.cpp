#include "platform/graphics/UIImage.h"

#include "platform/graphics/AssetCatalog.h"
#include "platform/graphics/ImageDecoder.h"
#include "platform/graphics/PNG.h"

#include <algorithm>
#include <utility>

namespace {

/// Larger ones are no icons, and decoded ahead they could hold much memory for nothing; in pixels.
constexpr CGFloat mostDecodedAhead = 256 * 256;

} // namespace

UIImage::UIImage(std::string name, std::vector<UIImageRepresentation> representations,
                 UIImageRenderingMode renderingMode)
    : m_name(std::move(name)), m_representations(std::move(representations)), m_renderingMode(renderingMode) {
    std::sort(m_representations.begin(), m_representations.end(),
              [](const auto& one, const auto& other) { return one.scale < other.scale; });
}

std::shared_ptr<UIImage> UIImage::imageNamed(std::string_view name) {
    AssetCatalog* catalog = AssetCatalog::current();
    return catalog == nullptr ? nullptr : catalog->imageNamed(name);
}

CGSize UIImage::size() const {
    measure();
    return m_size;
}

CGFloat UIImage::scale() const {
    measure();
    return m_scale;
}

void UIImage::prepareForDisplay(CGFloat deviceScale) const {
    const UIImageRepresentation* file = representationForScale(deviceScale);
    if (file != nullptr && size().width * file->scale * size().height * file->scale <= mostDecodedAhead) {
        ImageDecoder::shared().begin(file->path);
    }
}

const UIImageRepresentation* UIImage::representationForScale(CGFloat deviceScale) const {
    if (m_representations.empty()) {
        return nullptr;
    }
    const auto found = std::find_if(m_representations.begin(), m_representations.end(),
                                    [deviceScale](const auto& file) { return file.scale >= deviceScale; });
    return found == m_representations.end() ? &m_representations.back() : &*found;
}

void UIImage::measure() const {
    if (std::exchange(m_measured, true)) {
        return;
    }
    for (const UIImageRepresentation& file : m_representations) {
        const std::optional<PixelSize> pixels = readPNGSize(file.path);
        if (pixels.has_value() && file.scale > 0) {
            m_scale = file.scale;
            m_size = {pixels->width / m_scale, pixels->height / m_scale};
            return;
        }
    }
}
