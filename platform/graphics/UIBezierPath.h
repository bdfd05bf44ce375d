#pragma once

#include "platform/graphics/CGPath.h"
#include "platform/graphics/StrokeStyle.h"
#include "platform/runtime/NSObject.h"

#include <memory>
#include <utility>
#include <vector>

/// A curve with its line attributes. `stroke` and `fill` draw with the current colour into the canvas that is being
/// drawn to; outside of drawing they do nothing.
class UIBezierPath : public NSObject {
public:
    UIBezierPath() = default;
    explicit UIBezierPath(CGPath path) : m_path(std::move(path)) {}

    [[nodiscard]] static std::shared_ptr<UIBezierPath> bezierPath();

    void moveToPoint(CGPoint point) { m_path.moveTo(point); }
    void addLineToPoint(CGPoint point) { m_path.addLineTo(point); }
    void addQuadCurveToPointControlPoint(CGPoint end, CGPoint control) { m_path.addQuadCurveTo(end, control); }

    [[nodiscard]] bool isEmpty() const { return m_path.isEmpty(); }
    [[nodiscard]] CGRect bounds() const { return m_path.boundingBox(); }
    [[nodiscard]] const CGPath& path() const { return m_path; }
    [[nodiscard]] const std::vector<CGPathElement>& elements() const { return m_path.elements(); }

    [[nodiscard]] CGFloat lineWidth() const { return m_style.width; }
    void setLineWidth(CGFloat width) { m_style.width = width; }
    [[nodiscard]] CGLineJoin lineJoinStyle() const { return m_style.join; }
    void setLineJoinStyle(CGLineJoin join) { m_style.join = join; }
    [[nodiscard]] CGLineCap lineCapStyle() const { return m_style.cap; }
    void setLineCapStyle(CGLineCap cap) { m_style.cap = cap; }

    void stroke() const;
    void fill() const;

private:
    CGPath m_path;
    StrokeStyle m_style;
};
