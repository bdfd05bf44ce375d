#pragma once

#include "platform/graphics/UIColor.h"

class Canvas;

/// What `drawRect:` draws with: the canvas, the current colour and the appearance. The one made last is current until
/// it goes out of scope, then the one before it is again. Main thread only.
class DrawingContext {
public:
    DrawingContext(Canvas& canvas, UIUserInterfaceStyle style) : m_canvas(canvas), m_style(style), m_outer(s_current) {
        s_current = this;
    }
    ~DrawingContext() { s_current = m_outer; }
    DrawingContext(const DrawingContext&) = delete;
    DrawingContext& operator=(const DrawingContext&) = delete;

    /// Null outside of drawing.
    [[nodiscard]] static DrawingContext* current() { return s_current; }

    [[nodiscard]] Canvas& canvas() const { return m_canvas; }
    [[nodiscard]] UIUserInterfaceStyle style() const { return m_style; }
    /// For filling and stroking; black at first.
    [[nodiscard]] const RGBA& color() const { return m_color; }
    void setColor(const RGBA& color) { m_color = color; }

private:
    Canvas& m_canvas;
    UIUserInterfaceStyle m_style;
    RGBA m_color;
    DrawingContext* m_outer;
    inline static DrawingContext* s_current = nullptr;
};
