#include "platform/graphics/DrawingContext.h"

namespace {

DrawingContext* currentContext = nullptr;

}

DrawingContext::DrawingContext(Canvas& canvas, UIUserInterfaceStyle style)
    : m_canvas(canvas), m_style(style), m_outer(currentContext) {
    currentContext = this;
}

DrawingContext::~DrawingContext() {
    currentContext = m_outer;
}

DrawingContext* DrawingContext::current() {
    return currentContext;
}
