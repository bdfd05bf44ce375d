#include "platform/graphics/UIColor.h"

#include "platform/graphics/AssetCatalog.h"
#include "platform/graphics/DrawingContext.h"

UIColor::UIColor(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) : UIColor(RGBA{red, green, blue, alpha}) {}

UIColor::UIColor(const RGBA& components) : UIColor(components, components) {}

UIColor::UIColor(const RGBA& light, const RGBA& dark) : m_light(light), m_dark(dark) {}

UIColor::Pointer UIColor::colorWithRedGreenBlueAlpha(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    return std::make_shared<UIColor>(red, green, blue, alpha);
}

UIColor::Pointer UIColor::dynamicColor(const RGBA& light, const RGBA& dark) {
    return std::make_shared<UIColor>(light, dark);
}

UIColor::Pointer UIColor::colorNamed(std::string_view name) {
    AssetCatalog* catalog = AssetCatalog::current();
    return catalog == nullptr ? nullptr : catalog->colorNamed(name);
}

UIColor::Pointer UIColor::blackColor() {
    return std::make_shared<UIColor>(0, 0, 0, 1);
}
UIColor::Pointer UIColor::whiteColor() {
    return std::make_shared<UIColor>(1, 1, 1, 1);
}
UIColor::Pointer UIColor::grayColor() {
    return std::make_shared<UIColor>(0.5, 0.5, 0.5, 1);
}
UIColor::Pointer UIColor::blueColor() {
    return std::make_shared<UIColor>(0, 0, 1, 1);
}
UIColor::Pointer UIColor::clearColor() {
    return std::make_shared<UIColor>(0, 0, 0, 0);
}

RGBA UIColor::resolved(UIUserInterfaceStyle style) const {
    return style == UIUserInterfaceStyle::dark ? m_dark : m_light;
}

RGBA UIColor::components() const {
    const DrawingContext* context = DrawingContext::current();
    return resolved(context == nullptr ? UIUserInterfaceStyle::light : context->style());
}

void UIColor::set() const {
    DrawingContext* context = DrawingContext::current();
    if (context == nullptr) {
        return;
    }
    context->setFillColor(components());
    context->setStrokeColor(components());
}
