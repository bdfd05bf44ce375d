#include "platform/graphics/TextLayout.h"

#include "platform/graphics/RecentCache.h"
#include "platform/graphics/TextLines.h"

#include <glib.h>

#include <algorithm>
#include <array>

namespace {

/// Layouts of short texts; a few screens of rows. A long text counts as several, and four of the longest are kept.
constexpr std::size_t keptLayouts = 256;
constexpr std::size_t bytesOfShort = 512;

std::size_t costOf(const TextRequest& request) {
    return std::min(keptLayouts / 4, 1 + request.text.size() / bytesOfShort);
}

/// The bytes of everything that the lines depend on.
std::string keyOf(const TextRequest& request) {
    const std::array<CGFloat, 8> numbers{request.font->pointSize(),
                                         static_cast<CGFloat>(request.font->weight()),
                                         static_cast<CGFloat>(request.font->slant()),
                                         static_cast<CGFloat>(request.alignment),
                                         request.lineSpacing,
                                         static_cast<CGFloat>(request.lineBreakMode),
                                         static_cast<CGFloat>(request.maximumLines),
                                         request.width.value_or(0)}; // which counts as unbounded, too
    std::string key;
    key.reserve(sizeof numbers + request.text.size());
    return key.append(reinterpret_cast<const char*>(numbers.data()), sizeof numbers).append(request.text);
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
    std::string key = keyOf(request);
    if (const auto* found = kept.find(key)) {
        return *found;
    }
    const auto made = std::make_shared<const TextLayout>(Key(), request);
    kept.insert(std::move(key), made, costOf(request));
    return made;
}

TextLayout::TextLayout(Key, const TextRequest& request)
    : m_text(request.text), m_lines(breakIntoLines(request, validated(request.text))) {}

TextLayout::~TextLayout() = default;

CGSize TextLayout::size() const {
    return m_lines->size;
}

int TextLayout::lineCount() const {
    return static_cast<int>(m_lines->lines.size());
}

bool TextLayout::isCut() const {
    return m_lines->isCut;
}

std::string TextLayout::characterWithoutFont(std::string_view text) {
    const std::string valid = validated(std::string(text));
    for (const char* at = valid.data(); at < valid.data() + valid.size(); at = g_utf8_next_char(at)) {
        const std::string character(at, static_cast<std::size_t>(g_utf8_next_char(at) - at));
        if (character.size() > 1 && !hasFontFor(character)) {
            return character;
        }
    }
    return {};
}

CGFloat TextLayout::firstBaseline() const {
    return m_lines->lines.front().baseline;
}

CGFloat TextLayout::lastBaseline() const {
    return m_lines->lines.back().baseline;
}

const std::string& TextLayout::text() const {
    return m_text;
}
