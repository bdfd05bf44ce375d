#pragma once

#include "platform/foundation/Geometry.h"

/// x' = a x + c y + tx, y' = b x + d y + ty.
struct CGAffineTransform {
    CGFloat a = 1;
    CGFloat b = 0;
    CGFloat c = 0;
    CGFloat d = 1;
    CGFloat tx = 0;
    CGFloat ty = 0;

    friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;

    [[nodiscard]] static constexpr CGAffineTransform translation(CGFloat x, CGFloat y) { return {1, 0, 0, 1, x, y}; }
    [[nodiscard]] static constexpr CGAffineTransform scaling(CGFloat x, CGFloat y) { return {x, 0, 0, y, 0, 0}; }

    [[nodiscard]] CGPoint apply(CGPoint point) const {
        return {a * point.x + c * point.y + tx, b * point.x + d * point.y + ty};
    }
    /// First this one, then `outer`.
    [[nodiscard]] CGAffineTransform then(const CGAffineTransform& outer) const;
    /// Neither rotates, shears nor mirrors.
    [[nodiscard]] bool isUpright() const { return b == 0 && c == 0 && a > 0 && d > 0; }
};
