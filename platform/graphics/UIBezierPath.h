#pragma once

#include "platform/graphics/CGPath.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <utility>

/// A curve with its line attributes. `stroke` and `fill` draw with the current colour into the canvas that is being
/// drawn to; outside of drawing they do nothing.
class UIBezierPath : public NSObject {
public:
    UIBezierPath() = default;
    explicit UIBezierPath(CGPath path) : m_path(std::make_shared<CGPath>(std::move(path))) {}

    [[nodiscard]] static std::shared_ptr<UIBezierPath> bezierPath() { return std::make_shared<UIBezierPath>(); }

    void moveToPoint(CGPoint point) { changing().moveTo(point); }
    void addLineToPoint(CGPoint point) { changing().addLineTo(point); }
    void addQuadCurveToPointControlPoint(CGPoint end, CGPoint control) { changing().addQuadCurveTo(end, control); }

    void setLineWidth(CGFloat width) { m_style.width = width; }
    void setLineJoinStyle(CGLineJoin join) { m_style.join = join; }
    void setLineCapStyle(CGLineCap cap) { m_style.cap = cap; }

    void stroke() const;
    void fill() const;

private:
    /// What was drawn is shared with whoever keeps the drawing, so it is copied before it changes.
    [[nodiscard]] CGPath& changing();

    std::shared_ptr<CGPath> m_path = std::make_shared<CGPath>();
    StrokeStyle m_style;
};
