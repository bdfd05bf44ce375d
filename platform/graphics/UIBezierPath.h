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
    explicit UIBezierPath(CGPath path) : m_path(std::move(path)) {}

    [[nodiscard]] static std::shared_ptr<UIBezierPath> bezierPath() { return std::make_shared<UIBezierPath>(); }

    void moveToPoint(CGPoint point) { m_path.moveTo(point); }
    void addLineToPoint(CGPoint point) { m_path.addLineTo(point); }
    void addQuadCurveToPointControlPoint(CGPoint end, CGPoint control) { m_path.addQuadCurveTo(end, control); }

    void setLineWidth(CGFloat width) { m_style.width = width; }
    void setLineJoinStyle(CGLineJoin join) { m_style.join = join; }
    void setLineCapStyle(CGLineCap cap) { m_style.cap = cap; }

    void stroke() const;
    void fill() const;

private:
    CGPath m_path;
    StrokeStyle m_style;
};
