#include "platform/graphics/UIBezierPath.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"

std::shared_ptr<UIBezierPath> UIBezierPath::bezierPath() {
    return std::make_shared<UIBezierPath>();
}

std::shared_ptr<UIBezierPath> UIBezierPath::bezierPathWithRect(const CGRect& rect) {
    return std::make_shared<UIBezierPath>(CGPath::withRect(rect));
}

std::shared_ptr<UIBezierPath> UIBezierPath::bezierPathWithRoundedRectCornerRadius(const CGRect& rect,
                                                                                  CGFloat cornerRadius) {
    return std::make_shared<UIBezierPath>(CGPath::withRoundedRect(rect, cornerRadius));
}

std::shared_ptr<UIBezierPath> UIBezierPath::bezierPathWithOvalInRect(const CGRect& rect) {
    return std::make_shared<UIBezierPath>(CGPath::withEllipseIn(rect));
}

void UIBezierPath::stroke() const {
    if (const DrawingContext* context = DrawingContext::current()) {
        context->canvas().strokePath(m_path, context->strokeColor(), m_style);
    }
}

void UIBezierPath::fill() const {
    if (const DrawingContext* context = DrawingContext::current()) {
        context->canvas().fillPath(m_path, context->fillColor());
    }
}
