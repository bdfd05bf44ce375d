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

/// A rectangle with round corners, or a plain one (radius 0).
struct RoundedRect {
    CGRect rect;
    CGFloat radius = 0;
};

enum class CGLineJoin { miter = 0, round = 1, bevel = 2 };
enum class CGLineCap { butt = 0, round = 1, square = 2 };

/// How a path is stroked; the width is in points.
struct StrokeStyle {
    CGFloat width = 1;
    CGLineJoin join = CGLineJoin::miter;
    CGLineCap cap = CGLineCap::butt;

    /// How far from its path a stroke can reach, in points.
    [[nodiscard]] CGFloat reach() const { return width * (join == CGLineJoin::miter ? 5 : 0.75); }
    friend bool operator==(const StrokeStyle&, const StrokeStyle&) = default;
};

/// A shape as a list of pieces, by value. Remembers when it is one plain or rounded rectangle, which canvases draw
/// faster.
class CGPath {
public:
    [[nodiscard]] static CGPath withRect(const CGRect& rect);
    /// The radius is limited to half the shorter side.
    [[nodiscard]] static CGPath withRoundedRect(const CGRect& rect, CGFloat radius);
    [[nodiscard]] static CGPath withEllipseIn(const CGRect& rect);

    void moveTo(CGPoint point) { add(CGPathElementType::moveToPoint, {point}); }
    /// Lines and curves without a current point begin at their own first point.
    void addLineTo(CGPoint point) { add(CGPathElementType::addLineToPoint, {point}); }
    void addQuadCurveTo(CGPoint end, CGPoint control) { add(CGPathElementType::addQuadCurveToPoint, {control, end}); }

    [[nodiscard]] bool isEmpty() const { return m_elements.empty(); }
    [[nodiscard]] const std::vector<CGPathElement>& elements() const { return m_elements; }
    /// The box around all points, control points included; empty for an empty path. Its size is not a number when a
    /// coordinate is infinite or not a number.
    [[nodiscard]] CGRect boundingBox() const;
    /// Set when the path is exactly one rectangle, plain or rounded.
    [[nodiscard]] const std::optional<RoundedRect>& asRectangle() const { return m_rectangle; }
    [[nodiscard]] CGPath offsetBy(CGFloat dx, CGFloat dy) const;

private:
    void addCurveTo(CGPoint end, CGPoint control1, CGPoint control2) {
        add(CGPathElementType::addCurveToPoint, {control1, control2, end});
    }
    void closeSubpath() { add(CGPathElementType::closeSubpath, {}); }
    /// A straight line from corner to corner and a quarter ellipse with these radii around each corner.
    [[nodiscard]] static CGPath withCorners(const CGRect& rect, CGFloat rx, CGFloat ry);
    void add(CGPathElementType type, std::array<CGPoint, 3> points);

    std::vector<CGPathElement> m_elements;
    std::optional<RoundedRect> m_rectangle;
};
