#include "platform/graphics/TextLayout.h"

#include "platform/graphics/LineBreaker.h"
#include "platform/graphics/RecentCache.h"

#include <glib.h>

#include <sstream>

namespace {

/// A few screens of rows; longer texts are too heavy to keep unasked.
constexpr std::size_t keptLayouts = 256;
constexpr std::size_t longestKept = 512;

std::string keyOf(const TextRequest& request) {
    std::ostringstream key;
    key.precision(17);
    if (request.font != nullptr) {
        key << request.font->pointSize() << ' ' << static_cast<int>(request.font->weight()) << ' '
            << static_cast<int>(request.font->slant());
    }
    key << ',' << static_cast<int>(request.alignment) << ',' << request.lineSpacing << ','
        << static_cast<int>(request.lineBreakMode) << ',' << request.maximumLines << ',';
    if (request.width.has_value()) {
        key << *request.width;
    }
    key << ',' << request.text;
    return key.str();
}

std::string validated(const std::string& text) {
    if (g_utf8_validate_len(text.data(), text.size(), nullptr) != FALSE) {
        return text;
    }
    char* made = g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()));
    std::string valid(made);
    g_free(made);
    return valid;
}

} // namespace

std::shared_ptr<const TextLayout> TextLayout::make(const TextRequest& request) {
    static RecentCache<std::shared_ptr<const TextLayout>> kept(keptLayouts);
    if (request.text.size() > longestKept) {
        return std::make_shared<TextLayout>(Key(), request);
    }
    std::string key = keyOf(request);
    if (const auto* found = kept.find(key)) {
        return *found;
    }
    const auto made = std::make_shared<const TextLayout>(Key(), request);
    kept.insert(std::move(key), made, 1);
    return made;
}

TextLayout::TextLayout(Key, const TextRequest& request)
    : m_text(request.text), m_lines(LineBreaker(request, validated(request.text)).run()) {}

TextLayout::~TextLayout() = default;

CGSize TextLayout::size() const {
    return m_lines->size;
}

int TextLayout::lineCount() const {
    return static_cast<int>(m_lines->lines.size());
}

CGFloat TextLayout::firstBaseline() const {
    return m_lines->lines.front().baseline;
}

CGFloat TextLayout::lastBaseline() const {
    return m_lines->lines.back().baseline;
}

bool TextLayout::isTruncated() const {
    return m_lines->truncated;
}

const std::string& TextLayout::text() const {
    return m_text;
}
