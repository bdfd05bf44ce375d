#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <string_view>

enum class UIFontWeight { ultraLight, thin, light, regular, medium, semibold, bold, heavy, black };
enum class FontSlant { upright, italic };

/// How large the reader wants texts to be; `large` is what phones come with.
enum class UIContentSizeCategory {
    extraSmall,
    small,
    medium,
    large,
    extraLarge,
    extraExtraLarge,
    extraExtraExtraLarge,
    accessibilityMedium,
    accessibilityLarge,
    accessibilityExtraLarge,
};

/// A size and weight of the interface's typeface (Inter), immutable. All metrics are in points, unhinted.
class UIFont : public NSObject {
public:
    UIFont(CGFloat pointSize, UIFontWeight weight, FontSlant slant = FontSlant::upright);

    [[nodiscard]] static std::shared_ptr<UIFont> systemFontOfSize(CGFloat size) {
        return systemFontOfSizeWeight(size, UIFontWeight::regular);
    }
    [[nodiscard]] static std::shared_ptr<UIFont> systemFontOfSizeWeight(CGFloat size, UIFontWeight weight) {
        return std::make_shared<UIFont>(size, weight);
    }
    [[nodiscard]] static std::shared_ptr<UIFont> boldSystemFontOfSize(CGFloat size) {
        return systemFontOfSizeWeight(size, UIFontWeight::bold);
    }
    [[nodiscard]] static std::shared_ptr<UIFont> italicSystemFontOfSize(CGFloat size) {
        return std::make_shared<UIFont>(size, UIFontWeight::regular, FontSlant::italic);
    }
    /// By the style's name in interface files ("UICTFontTextStyleBody"); null when unknown.
    [[nodiscard]] static std::shared_ptr<UIFont>
    preferredFontForTextStyle(std::string_view style, UIContentSizeCategory category = UIContentSizeCategory::large);
    /// Empty for a font that was not made for a text style.
    [[nodiscard]] std::string_view textStyle() const { return m_textStyle; }

    [[nodiscard]] CGFloat pointSize() const { return m_pointSize; }
    [[nodiscard]] UIFontWeight weight() const { return m_weight; }
    [[nodiscard]] FontSlant slant() const { return m_slant; }

    [[nodiscard]] CGFloat ascender() const;
    /// Negative: below the baseline.
    [[nodiscard]] CGFloat descender() const;

    friend bool operator==(const UIFont& one, const UIFont& other) {
        return one.m_pointSize == other.m_pointSize && one.m_weight == other.m_weight && one.m_slant == other.m_slant;
    }

private:
    CGFloat m_pointSize;
    UIFontWeight m_weight;
    FontSlant m_slant;
    std::string_view m_textStyle; // of those that last as long as the program
};
