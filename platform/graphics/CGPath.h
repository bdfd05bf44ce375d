#pragma once

#include "platform/foundation/Geometry.h"

#include <array>
#include <optional>
#include <vector>

enum class CGPathElementType { moveToPoint, addLineToPoint, addQuadCurveToPoint, addCurveToPoint, closeSubpath };

/// One piece of a path. Control points come first, the end point last; unused points are zero.
struct CGPathElement {
    CGPathElementType type = CGPathElementType::moveToPoint;
    std::array<CGPoint, 3> points;

    friend bool operator==(const CGPathElement&, const CGPathElement&) = default;
};

struct CGRoundedRect {
    CGRect rect;
    CGFloat radius = 0;
};

/// A shape as a list of pieces, by value. Remembers when it is one plain or rounded rectangle, which canvases draw
/// faster.
class CGPath {
public:
    [[nodiscard]] static CGPath withRect(const CGRect& rect);
    /// The radius is limited to half the shorter side.
    [[nodiscard]] static CGPath withRoundedRect(const CGRect& rect, CGFloat radius);
    [[nodiscard]] static CGPath withEllipseIn(const CGRect& rect);

    void moveTo(CGPoint point);
    /// Lines and curves without a current point begin at their own first point.
    void addLineTo(CGPoint point);
    void addQuadCurveTo(CGPoint end, CGPoint control);
    void addCurveTo(CGPoint end, CGPoint control1, CGPoint control2);
    void closeSubpath();
    void addRect(const CGRect& rect);

    [[nodiscard]] bool isEmpty() const { return m_elements.empty(); }
    [[nodiscard]] const std::vector<CGPathElement>& elements() const { return m_elements; }
    /// The box around all points, control points included; empty for an empty path, not a number when a point is none.
    [[nodiscard]] CGRect boundingBox() const;
    /// Set when the path is exactly one rectangle, plain (radius 0) or rounded.
    [[nodiscard]] const std::optional<CGRoundedRect>& asRectangle() const { return m_rectangle; }
    [[nodiscard]] CGPath offsetBy(CGFloat dx, CGFloat dy) const;

private:
    void add(CGPathElementType type, std::array<CGPoint, 3> points);

    std::vector<CGPathElement> m_elements;
    std::optional<CGRoundedRect> m_rectangle;
};
