#pragma once

#include "platform/foundation/Geometry.h"

/// The device's one screen. The host describes it before the extension starts; it does not change afterwards.
class UIScreen {
public:
    [[nodiscard]] static UIScreen& mainScreen();

    /// Points, with the origin at zero.
    [[nodiscard]] const CGRect& bounds() const { return m_bounds; }
    /// Device pixels a point.
    [[nodiscard]] CGFloat scale() const { return m_scale; }
    /// For the host.
    void configure(CGSize points, CGFloat scale);

private:
    CGRect m_bounds{{0, 0}, {393, 852}};
    CGFloat m_scale = 3;
};
