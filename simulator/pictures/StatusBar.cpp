#include "simulator/pictures/BackdropViews.h"

#include <cmath>

namespace {

std::shared_ptr<UIView> makeReception() {
    auto glyph = std::make_shared<GlyphView>(CGRectMake(0, 0, 18, 12), systemColor("labelColor"));
    for (int bar = 0; bar < 4; ++bar) {
        const CGFloat height = 4 + 8.0 / 3 * bar;
        glyph->addShape(CGPath::withRoundedRect(CGRectMake(5 * bar, 12 - height, 3, height), 1));
    }
    return glyph;
}

std::shared_ptr<UIView> makeWireless() {
    constexpr CGPoint foot{8.5, 10.5};
    auto glyph = std::make_shared<GlyphView>(CGRectMake(0, 0, 17, 12), systemColor("labelColor"));
    glyph->addShape(CGPath::withEllipseIn(CGRectMake(foot.x - 1.5, foot.y - 1.5, 3, 3)));
    for (const CGFloat radius : {5.0, 9.0}) {
        const CGFloat side = radius * std::sqrt(0.5);
        CGPath arc;
        arc.moveTo({foot.x - side, foot.y - side});
        arc.addQuadCurveTo({foot.x + side, foot.y - side}, {foot.x, foot.y - radius * std::sqrt(1.75)});
        glyph->addLine(std::move(arc), 1.8);
    }
    return glyph;
}

std::shared_ptr<UIView> makeBattery() {
    auto glyph = std::make_shared<UIView>(CGRectMake(0, 0, 27, 12));
    auto shell = std::make_shared<GlyphView>(CGRectMake(0, 0, 27, 12), systemColor("tertiaryLabelColor"));
    shell->addLine(CGPath::withRoundedRect(CGRectMake(0.5, 0.5, 23, 11), 3.5), 1);
    shell->addShape(CGPath::withRoundedRect(CGRectMake(25, 4, 1.5, 4), 0.75));
    auto charge = std::make_shared<GlyphView>(CGRectMake(0, 0, 27, 12), systemColor("labelColor"));
    charge->addShape(CGPath::withRoundedRect(CGRectMake(2, 2, 18, 8), 2));
    glyph->addSubview(shell);
    glyph->addSubview(charge);
    return glyph;
}

} // namespace

std::shared_ptr<UIView> makeStatusBar(const Device& device) {
    const bool tall = device.safeArea.top > 20;
    const CGFloat width = device.size.width;
    const CGFloat middle = tall ? device.safeArea.top / 2 + 3 : device.safeArea.top / 2;
    auto bar = std::make_shared<UIView>(CGRectMake(0, 0, width, device.safeArea.top));
    const auto add = [&](const std::shared_ptr<UIView>& part, CGFloat x) {
        centre(*part, {x, middle});
        bar->addSubview(part);
    };
    add(caption("9:41", tall ? 17 : 12, UIFontWeight::semibold, systemColor("labelColor")), tall ? 58 : width / 2);
    add(makeReception(), tall ? width - 91 : 17);
    add(makeWireless(), tall ? width - 67 : 40);
    add(makeBattery(), tall ? width - 38 : width - 21);
    return bar;
}
