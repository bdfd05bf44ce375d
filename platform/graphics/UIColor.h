#pragma once

#include "platform/foundation/Geometry.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <string_view>

/// A colour as it is painted: sRGB components from 0 to 1, not premultiplied.
struct RGBA {
    CGFloat red = 0;
    CGFloat green = 0;
    CGFloat blue = 0;
    CGFloat alpha = 1;

    friend bool operator==(const RGBA&, const RGBA&) = default;
};

/// The appearance in which colours are resolved.
enum class UIUserInterfaceStyle { light = 1, dark = 2 };

/// A colour, immutable. A dynamic colour has other components in the dark appearance; which ones count is decided when
/// it is drawn.
class UIColor : public NSObject {
public:
    using Pointer = std::shared_ptr<UIColor>;

    UIColor(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha)
        : m_light{red, green, blue, alpha}, m_dark(m_light) {}
    UIColor(const RGBA& light, const RGBA& dark) : m_light(light), m_dark(dark) {}

    [[nodiscard]] static Pointer colorWithRedGreenBlueAlpha(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
        return std::make_shared<UIColor>(red, green, blue, alpha);
    }
    [[nodiscard]] static Pointer dynamicColor(const RGBA& light, const RGBA& dark) {
        return std::make_shared<UIColor>(light, dark);
    }
    /// The colour of the running extension's asset catalogue; null when it has none of that name.
    [[nodiscard]] static Pointer colorNamed(std::string_view name);
    /// A colour of the platform by its property name ("labelColor", "systemBlueColor", "blackColor"); null when
    /// unknown.
    [[nodiscard]] static Pointer systemColorNamed(std::string_view name);

    [[nodiscard]] static Pointer blackColor() { return std::make_shared<UIColor>(0, 0, 0, 1); }
    [[nodiscard]] static Pointer whiteColor() { return std::make_shared<UIColor>(1, 1, 1, 1); }
    [[nodiscard]] static Pointer grayColor() { return std::make_shared<UIColor>(0.5, 0.5, 0.5, 1); }
    [[nodiscard]] static Pointer blueColor() { return std::make_shared<UIColor>(0, 0, 1, 1); }
    [[nodiscard]] static Pointer clearColor() { return std::make_shared<UIColor>(0, 0, 0, 0); }

    [[nodiscard]] RGBA resolved(UIUserInterfaceStyle style) const;
    /// The components in the appearance that is being drawn (light outside of drawing).
    [[nodiscard]] RGBA components() const;

    /// Makes this the current colour for filling and stroking; without effect outside of drawing.
    void set() const;

    /// Equal components in both appearances.
    friend bool operator==(const UIColor& one, const UIColor& other) {
        return one.m_light == other.m_light && one.m_dark == other.m_dark;
    }

private:
    RGBA m_light;
    RGBA m_dark;
};

/// Whether both are null or equal.
[[nodiscard]] inline bool sameColor(const UIColor::Pointer& one, const UIColor::Pointer& other) {
    return one == other || (one && other && *one == *other);
}
