#include "ui/Colors.h"

#include "platform/foundation/NSScanner.h"
#include "platform/foundation/Text.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

constexpr std::size_t digitCount = 6;

CGFloat component(std::uint64_t value, unsigned shift) {
    return static_cast<CGFloat>((value >> shift) & 0xFF) / 255.0;
}

} // namespace

std::shared_ptr<UIColor> colorFromHex(std::string_view text) {
    std::string digits = uppercased(trimmingWhitespaceAndNewlines(text));
    if (digits.starts_with('#')) {
        digits.erase(0, 1);
    }
    if (characterCount(digits) != digitCount) {
        return UIColor::grayColor();
    }
    std::uint64_t value = 0;
    NSScanner(digits).scanHexLongLong(value);
    return UIColor::colorWithRedGreenBlueAlpha(component(value, 16), component(value, 8), component(value, 0), 1.0);
}

namespace named_colors {

const std::shared_ptr<UIColor>& appGreen() {
    static const std::shared_ptr<UIColor> color = [] {
        const std::shared_ptr<UIColor> named = UIColor::colorNamed("AppGreen");
        return named ? named : UIColor::blueColor();
    }();
    return color;
}

const std::shared_ptr<UIColor>& textColor() {
    static const std::shared_ptr<UIColor> color = UIColor::colorNamed("TextColor");
    return color;
}

const std::shared_ptr<UIColor>& textGrey() {
    static const std::shared_ptr<UIColor> color = UIColor::colorNamed("TextGrey");
    return color;
}

} // namespace named_colors
