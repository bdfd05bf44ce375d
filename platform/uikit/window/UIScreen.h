#pragma once

#include "platform/foundation/PixelGrid.h"
#include "platform/graphics/UIFont.h"

/// Where the phone's language begins a line: there are the leading edges of views.
enum class UIUserInterfaceLayoutDirection { leftToRight, rightToLeft };

/// The device's one screen, how large its reader wants texts to be, and the direction of the reader's language. The
/// host describes it before the extension starts; only the text size changes afterwards.
class UIScreen {
public:
    [[nodiscard]] static UIScreen& mainScreen() {
        static UIScreen screen;
        return screen;
    }

    /// Points, with the origin at zero.
    [[nodiscard]] const CGRect& bounds() const { return m_bounds; }
    /// Device pixels a point.
    [[nodiscard]] CGFloat scale() const { return m_grid.scale; }
    /// Where lengths in points fall on its pixels.
    [[nodiscard]] const PixelGrid& grid() const { return m_grid; }
    /// Of texts that follow it. A window sets it, see there.
    [[nodiscard]] UIContentSizeCategory contentSizeCategory() const { return m_contentSizeCategory; }
    void setContentSizeCategory(UIContentSizeCategory category) { m_contentSizeCategory = category; }
    [[nodiscard]] UIUserInterfaceLayoutDirection userInterfaceLayoutDirection() const { return m_direction; }
    void setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection direction) { m_direction = direction; }
    /// For the host; `scale` is greater than 0.
    void configure(CGSize points, CGFloat scale) {
        m_bounds = {{0, 0}, points};
        m_grid = {scale};
    }

private:
    CGRect m_bounds{{0, 0}, {393, 852}};
    PixelGrid m_grid{3};
    UIContentSizeCategory m_contentSizeCategory = UIContentSizeCategory::large;
    UIUserInterfaceLayoutDirection m_direction = UIUserInterfaceLayoutDirection::leftToRight;
};
