#include "platform/graphics/UIFont.h"

#include "platform/graphics/FontLibrary.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace {

/// Text beyond this size is of no use on a phone and would only exhaust memory.
constexpr CGFloat largestSize = 2000;

/// A style and its point sizes, from the smallest category to the largest.
struct TextStyle {
    std::string_view name;
    UIFontWeight weight;
    std::array<int, 10> sizes;
};

constexpr TextStyle styles[] = {
    {"UICTFontTextStyleTitle0", UIFontWeight::regular, {31, 32, 33, 34, 36, 38, 40, 44, 48, 52}},
    {"UICTFontTextStyleTitle1", UIFontWeight::regular, {25, 26, 27, 28, 30, 32, 34, 38, 43, 48}},
    {"UICTFontTextStyleTitle2", UIFontWeight::regular, {19, 20, 21, 22, 24, 26, 28, 34, 39, 44}},
    {"UICTFontTextStyleTitle3", UIFontWeight::regular, {17, 18, 19, 20, 22, 24, 26, 31, 37, 43}},
    {"UICTFontTextStyleHeadline", UIFontWeight::semibold, {14, 15, 16, 17, 19, 21, 23, 28, 33, 40}},
    {"UICTFontTextStyleBody", UIFontWeight::regular, {14, 15, 16, 17, 19, 21, 23, 28, 33, 40}},
    {"UICTFontTextStyleCallout", UIFontWeight::regular, {13, 14, 15, 16, 18, 20, 22, 26, 32, 38}},
    {"UICTFontTextStyleSubhead", UIFontWeight::regular, {12, 13, 14, 15, 17, 19, 21, 25, 30, 36}},
    {"UICTFontTextStyleFootnote", UIFontWeight::regular, {12, 12, 12, 13, 15, 17, 19, 23, 27, 33}},
    {"UICTFontTextStyleCaption1", UIFontWeight::regular, {11, 11, 11, 12, 14, 16, 18, 22, 26, 32}},
    {"UICTFontTextStyleCaption2", UIFontWeight::regular, {11, 11, 11, 11, 13, 15, 17, 20, 24, 29}},
};

} // namespace

UIFont::UIFont(CGFloat pointSize, UIFontWeight weight, FontSlant slant)
    : m_pointSize(std::isfinite(pointSize) ? std::clamp(pointSize, 0.0, largestSize) : 0), m_weight(weight),
      m_slant(slant) {}

std::shared_ptr<UIFont> UIFont::preferredFontForTextStyle(std::string_view style, UIContentSizeCategory category) {
    const auto* found = std::find_if(std::begin(styles), std::end(styles),
                                     [style](const TextStyle& candidate) { return candidate.name == style; });
    if (found == std::end(styles)) {
        return nullptr;
    }
    const std::shared_ptr<UIFont> font =
        systemFontOfSizeWeight(found->sizes[static_cast<std::size_t>(category)], found->weight);
    font->m_textStyle = found->name;
    return font;
}

CGFloat UIFont::ascender() const {
    return FontLibrary::shared().metrics().ascender * m_pointSize;
}

CGFloat UIFont::descender() const {
    return FontLibrary::shared().metrics().descender * m_pointSize;
}
