#include "simulator/pictures/BackdropViews.h"

#include "platform/foundation/FatalError.h"

#include <cmath>
#include <utility>

void GlyphView::addShape(CGPath path) {
    m_shapes.push_back(std::make_unique<UIBezierPath>(std::move(path)));
}

void GlyphView::addLine(CGPath path, CGFloat width) {
    auto line = std::make_unique<UIBezierPath>(std::move(path));
    line->setLineWidth(width);
    line->setLineCapStyle(CGLineCap::round);
    line->setLineJoinStyle(CGLineJoin::round);
    m_lines.push_back(std::move(line));
}

void GlyphView::drawRect(const CGRect&) {
    m_color->set();
    for (const auto& shape : m_shapes) {
        shape->fill();
    }
    for (const auto& line : m_lines) {
        line->stroke();
    }
}

std::shared_ptr<UIColor> systemColor(const char* name) {
    std::shared_ptr<UIColor> color = UIColor::systemColorNamed(name);
    if (!color) {
        fatalError(std::string("the platform has no colour ") + name);
    }
    return color;
}

std::shared_ptr<UIColor> quietColor() {
    static const auto color = UIColor::dynamicColor({0.36, 0.36, 0.39, 1}, {0.68, 0.68, 0.71, 1});
    return color;
}

std::shared_ptr<UIView> area(const CGRect& frame, const std::shared_ptr<UIColor>& color, CGFloat radius) {
    auto view = std::make_shared<UIView>(frame);
    view->setBackgroundColor(color);
    view->layer()->setCornerRadius(radius);
    return view;
}

std::shared_ptr<UILabel> caption(const std::string& text, CGFloat size, UIFontWeight weight,
                                 const std::shared_ptr<UIColor>& color, CGFloat widest) {
    auto label = std::make_shared<UILabel>();
    label->setText(text);
    label->setFont(UIFont::systemFontOfSizeWeight(size, weight));
    label->setTextColor(color);
    label->setNumberOfLines(widest > 0 ? 0 : 1);
    const CGSize wanted = label->intrinsicContentSizeForWidth(widest > 0 ? widest : 10000);
    label->setFrame(CGRectMake(0, 0, std::ceil(wanted.width), std::ceil(wanted.height)));
    return label;
}

void mirror(UIView& view) {
    for (const std::shared_ptr<UIView>& part : view.subviews()) {
        const CGRect frame = part->frame();
        part->setFrame(frame.offsetBy(view.bounds().size.width - frame.maxX() - frame.minX(), 0));
        mirror(*part);
    }
}

void centre(UIView& view, CGPoint middle) {
    const CGSize size = view.bounds().size;
    view.setFrame(CGRectMake(std::round(middle.x - size.width / 2), std::round(middle.y - size.height / 2), size.width,
                             size.height));
}
