#pragma once

#include "platform/foundation/Geometry.h"

#include <cstdint>

/// A number of whole device pixels; sums of these are exact.
using Pixels = std::int64_t;

/// Where lengths and places in points fall on the device's pixels. A value; whoever rounds to pixels asks one, so that
/// edges that belong together stay together. Wild numbers (not a number, endless) are brought into range.
struct PixelGrid {
    /// In pixels: numbers this near to a pixel's edge, or to its middle, are on it. Sums of coordinates and the solver
    /// lose less than a hundredth of this, and a canvas that counts in 256ths of a pixel cannot draw it.
    static constexpr CGFloat tolerance = 1e-4;

    /// Pixels a point.
    CGFloat scale = 1;

    /// A half goes to the right or down.
    [[nodiscard]] Pixels nearest(CGFloat points) const;
    /// The pixel that a place lies in.
    [[nodiscard]] Pixels under(CGFloat points) const;
    /// As many as a length needs so that nothing of it is cut off.
    [[nodiscard]] Pixels holding(CGFloat points) const;
    [[nodiscard]] bool isWhole(CGFloat points) const;
    [[nodiscard]] CGFloat points(Pixels pixels) const { return static_cast<CGFloat>(pixels) / scale; }

    /// Points that stand on the grid: each edge of a rectangle on the nearest pixel, a size large enough.
    [[nodiscard]] CGFloat snapped(CGFloat place) const { return points(nearest(place)); }
    [[nodiscard]] CGRect snapped(const CGRect& rect) const;
    [[nodiscard]] CGSize holding(CGSize size) const;

    /// All pixels that a rectangle reaches into.
    [[nodiscard]] PixelRect touchedBy(const CGRect& rect) const;
    /// Only pixels that lie inside as a whole.
    [[nodiscard]] PixelRect inside(const CGRect& rect) const;
    [[nodiscard]] CGRect points(const PixelRect& rect) const;
};
