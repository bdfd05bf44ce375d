#include "platform/graphics/UIFont.h"

#include "platform/graphics/FontLibrary.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

/// Text beyond this size is of no use on a phone and would only exhaust memory.
constexpr CGFloat largestSize = 2000;

struct TextStyle {
    std::string_view name;
    CGFloat size;
    UIFontWeight weight;
};

constexpr TextStyle styles[] = {
    {"UICTFontTextStyleTitle0", 34, UIFontWeight::regular},    {"UICTFontTextStyleTitle1", 28, UIFontWeight::regular},
    {"UICTFontTextStyleTitle2", 22, UIFontWeight::regular},    {"UICTFontTextStyleTitle3", 20, UIFontWeight::regular},
    {"UICTFontTextStyleHeadline", 17, UIFontWeight::semibold}, {"UICTFontTextStyleBody", 17, UIFontWeight::regular},
    {"UICTFontTextStyleCallout", 16, UIFontWeight::regular},   {"UICTFontTextStyleSubhead", 15, UIFontWeight::regular},
    {"UICTFontTextStyleFootnote", 13, UIFontWeight::regular},  {"UICTFontTextStyleCaption1", 12, UIFontWeight::regular},
    {"UICTFontTextStyleCaption2", 11, UIFontWeight::regular},
};

} // namespace

UIFont::UIFont(CGFloat pointSize, UIFontWeight weight, FontSlant slant)
    : m_pointSize(std::isfinite(pointSize) ? std::clamp(pointSize, 0.0, largestSize) : 0), m_weight(weight),
      m_slant(slant) {}

std::shared_ptr<UIFont> UIFont::systemFontOfSize(CGFloat size) {
    return systemFontOfSizeWeight(size, UIFontWeight::regular);
}

std::shared_ptr<UIFont> UIFont::systemFontOfSizeWeight(CGFloat size, UIFontWeight weight) {
    return std::make_shared<UIFont>(size, weight);
}

std::shared_ptr<UIFont> UIFont::boldSystemFontOfSize(CGFloat size) {
    return systemFontOfSizeWeight(size, UIFontWeight::bold);
}

std::shared_ptr<UIFont> UIFont::italicSystemFontOfSize(CGFloat size) {
    return std::make_shared<UIFont>(size, UIFontWeight::regular, FontSlant::italic);
}

std::shared_ptr<UIFont> UIFont::preferredFontForTextStyle(std::string_view style) {
    const auto* found = std::find_if(std::begin(styles), std::end(styles),
                                     [style](const TextStyle& candidate) { return candidate.name == style; });
    return found == std::end(styles) ? nullptr : systemFontOfSizeWeight(found->size, found->weight);
}

CGFloat UIFont::ascender() const {
    return FontLibrary::shared().metrics().ascender * m_pointSize;
}

CGFloat UIFont::descender() const {
    return FontLibrary::shared().metrics().descender * m_pointSize;
}
