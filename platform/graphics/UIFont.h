#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <string_view>

enum class UIFontWeight { ultraLight, thin, light, regular, medium, semibold, bold, heavy, black };
enum class FontSlant { upright, italic };

/// A size and weight of the interface's typeface (Inter), immutable. All metrics are in points, unhinted.
class UIFont : public NSObject {
public:
    UIFont(CGFloat pointSize, UIFontWeight weight, FontSlant slant = FontSlant::upright);

    [[nodiscard]] static std::shared_ptr<UIFont> systemFontOfSize(CGFloat size);
    [[nodiscard]] static std::shared_ptr<UIFont> systemFontOfSizeWeight(CGFloat size, UIFontWeight weight);
    [[nodiscard]] static std::shared_ptr<UIFont> boldSystemFontOfSize(CGFloat size);
    [[nodiscard]] static std::shared_ptr<UIFont> italicSystemFontOfSize(CGFloat size);
    /// By the style's name in interface files ("UICTFontTextStyleBody"); null when unknown.
    [[nodiscard]] static std::shared_ptr<UIFont> preferredFontForTextStyle(std::string_view style);

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
};
