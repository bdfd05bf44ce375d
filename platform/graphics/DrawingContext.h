#pragma once

#include "platform/graphics/CGPath.h"
#include "platform/graphics/UIColor.h"

#include <memory>
#include <optional>
#include <vector>

class Canvas;

/// One path that was stroked or filled. A value; the path does not change any more.
struct PathOperation {
    std::shared_ptr<const CGPath> path;
    RGBA color;
    std::optional<StrokeStyle> stroke; // none: filled

    void drawOn(Canvas& canvas) const;
    /// What it can reach, in points.
    [[nodiscard]] CGRect bounds() const;
    friend bool operator==(const PathOperation& one, const PathOperation& other);
};

/// The paths of one drawing, written down instead of drawn. Whole until something else is drawn among them.
struct DrawingRecord {
    std::vector<PathOperation> operations;
    bool isWhole = true;
};

/// What `drawRect:` draws with: the canvas, the current colour and the appearance. The one made last is current until
/// it goes out of scope, then the one before it is again. Main thread only.
class DrawingContext {
public:
    /// With a record, paths go there as long as nothing but paths is drawn, and whoever made the record draws them.
    DrawingContext(Canvas& canvas, UIUserInterfaceStyle style, DrawingRecord* record = nullptr)
        : m_canvas(canvas), m_style(style), m_record(record), m_outer(s_current) {
        s_current = this;
    }
    ~DrawingContext() { s_current = m_outer; }
    DrawingContext(const DrawingContext&) = delete;
    DrawingContext& operator=(const DrawingContext&) = delete;

    /// Null outside of drawing.
    [[nodiscard]] static DrawingContext* current() { return s_current; }

    void draw(PathOperation operation) const;
    /// For what is no path; everything drawn so far is on it.
    [[nodiscard]] Canvas& canvas() const;
    [[nodiscard]] UIUserInterfaceStyle style() const { return m_style; }
    /// For filling and stroking; black at first.
    [[nodiscard]] const RGBA& color() const { return m_color; }
    void setColor(const RGBA& color) { m_color = color; }

private:
    Canvas& m_canvas;
    UIUserInterfaceStyle m_style;
    RGBA m_color;
    DrawingRecord* m_record;
    DrawingContext* m_outer;
    inline static DrawingContext* s_current = nullptr;
};
