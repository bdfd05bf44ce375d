#pragma once

#include "platform/graphics/RGBA.h"
#include "platform/graphics/UIUserInterfaceStyle.h"

class Canvas;

/// What `drawRect:` draws with: the canvas, the current colours and the appearance. The one made last is current until
/// it goes out of scope, then the one before it is again. Main thread only.
class DrawingContext {
public:
    DrawingContext(Canvas& canvas, UIUserInterfaceStyle style);
    ~DrawingContext();
    DrawingContext(const DrawingContext&) = delete;
    DrawingContext& operator=(const DrawingContext&) = delete;

    /// Null outside of drawing.
    [[nodiscard]] static DrawingContext* current();

    [[nodiscard]] Canvas& canvas() const { return m_canvas; }
    [[nodiscard]] UIUserInterfaceStyle style() const { return m_style; }
    [[nodiscard]] const RGBA& fillColor() const { return m_fillColor; }
    [[nodiscard]] const RGBA& strokeColor() const { return m_strokeColor; }
    void setFillColor(const RGBA& color) { m_fillColor = color; }
    void setStrokeColor(const RGBA& color) { m_strokeColor = color; }

private:
    Canvas& m_canvas;
    UIUserInterfaceStyle m_style;
    RGBA m_fillColor;
    RGBA m_strokeColor;
    DrawingContext* m_outer;
};
