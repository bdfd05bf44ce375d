#include "platform/graphics/UIBezierPath.h"

#include "platform/graphics/Canvas.h"
#include "platform/graphics/DrawingContext.h"

void UIBezierPath::stroke() const {
    if (const DrawingContext* context = DrawingContext::current()) {
        context->canvas().strokePath(m_path, context->color(), m_style);
    }
}

void UIBezierPath::fill() const {
    if (const DrawingContext* context = DrawingContext::current()) {
        context->canvas().fillPath(m_path, context->color());
    }
}
