#include "platform/graphics/UIBezierPath.h"

#include "platform/graphics/DrawingContext.h"

CGPath& UIBezierPath::changing() {
    if (m_path.use_count() > 1) {
        m_path = std::make_shared<CGPath>(*m_path);
    }
    return *m_path;
}

void UIBezierPath::stroke() const {
    if (DrawingContext* context = DrawingContext::current()) {
        context->draw({m_path, context->color(), m_style});
    }
}

void UIBezierPath::fill() const {
    if (DrawingContext* context = DrawingContext::current()) {
        context->draw({m_path, context->color(), std::nullopt});
    }
}
