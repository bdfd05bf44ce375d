#include "platform/graphics/UIColor.h"

#include "platform/graphics/AssetCatalog.h"
#include "platform/graphics/DrawingContext.h"

#include <algorithm>
#include <iterator>

namespace {

/// Components from 0 to 255, as designers write them.
struct Shade {
    int red;
    int green;
    int blue;
    CGFloat alpha = 1;
};

struct SystemColor {
    std::string_view name;
    Shade light;
    Shade dark;
};

constexpr Shade black{0, 0, 0};
constexpr Shade white{255, 255, 255};

/// The platform's colours by their property names.
constexpr SystemColor colors[] = {
    {"labelColor", black, white},
    {"secondaryLabelColor", {60, 60, 67, 0.6}, {235, 235, 245, 0.6}},
    {"tertiaryLabelColor", {60, 60, 67, 0.3}, {235, 235, 245, 0.3}},
    {"placeholderTextColor", {60, 60, 67, 0.3}, {235, 235, 245, 0.3}},
    {"separatorColor", {60, 60, 67, 0.29}, {84, 84, 88, 0.6}},
    {"opaqueSeparatorColor", {198, 198, 200}, {56, 56, 58}},
    {"systemBackgroundColor", white, black},
    {"secondarySystemBackgroundColor", {242, 242, 247}, {28, 28, 30}},
    {"systemGroupedBackgroundColor", {242, 242, 247}, black},
    {"secondarySystemGroupedBackgroundColor", white, {28, 28, 30}},
    {"tertiarySystemFillColor", {118, 118, 128, 0.12}, {118, 118, 128, 0.24}},
    {"systemRedColor", {255, 59, 48}, {255, 69, 58}},
    {"systemOrangeColor", {255, 149, 0}, {255, 159, 10}},
    {"systemYellowColor", {255, 204, 0}, {255, 214, 10}},
    {"systemGreenColor", {52, 199, 89}, {48, 209, 88}},
    {"systemMintColor", {0, 199, 190}, {102, 212, 207}},
    {"systemTealColor", {48, 176, 199}, {64, 200, 224}},
    {"systemBlueColor", {0, 122, 255}, {10, 132, 255}},
    {"systemIndigoColor", {88, 86, 214}, {94, 92, 230}},
    {"systemPinkColor", {255, 45, 85}, {255, 55, 95}},
    {"systemGrayColor", {142, 142, 147}, {142, 142, 147}},
    {"systemGray2Color", {174, 174, 178}, {99, 99, 102}},
    {"systemGray3Color", {199, 199, 204}, {72, 72, 74}},
    {"systemGray4Color", {209, 209, 214}, {58, 58, 60}},
    {"systemGray5Color", {229, 229, 234}, {44, 44, 46}},
    {"systemGray6Color", {242, 242, 247}, {28, 28, 30}},
    {"blackColor", black, black},
    {"whiteColor", white, white},
    {"darkGrayColor", {85, 85, 85}, {85, 85, 85}},
};

RGBA componentsOf(const Shade& shade) {
    return {shade.red / 255.0, shade.green / 255.0, shade.blue / 255.0, shade.alpha};
}

} // namespace

UIColor::Pointer UIColor::colorNamed(std::string_view name) {
    AssetCatalog* catalog = AssetCatalog::current();
    return catalog == nullptr ? nullptr : catalog->colorNamed(name);
}

UIColor::Pointer UIColor::systemColorNamed(std::string_view name) {
    const auto* found = std::find_if(std::begin(colors), std::end(colors),
                                     [name](const SystemColor& color) { return color.name == name; });
    return found == std::end(colors) ? nullptr : dynamicColor(componentsOf(found->light), componentsOf(found->dark));
}

RGBA UIColor::resolved(UIUserInterfaceStyle style) const {
    return style == UIUserInterfaceStyle::dark ? m_dark : m_light;
}

RGBA UIColor::components() const {
    const DrawingContext* context = DrawingContext::current();
    return resolved(context == nullptr ? UIUserInterfaceStyle::light : context->style());
}

void UIColor::set() const {
    if (DrawingContext* context = DrawingContext::current()) {
        context->setColor(components());
    }
}
