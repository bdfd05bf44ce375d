#include "platform/graphics/UIBezierPath.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"

std::shared_ptr<UIBezierPath> UIBezierPath::bezierPath() {
    return std::make_shared<UIBezierPath>();
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
