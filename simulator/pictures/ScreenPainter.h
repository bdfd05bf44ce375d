#pragma once

#include "platform/graphics/Bitmap.h"
#include "simulator/pictures/ConversationBackdrop.h"

class Canvas;

/// Paints the conversation around the extension: what stands behind its window, and on it the card of an opened link
/// and the home indicator, whose colour depends on what it lies on. Short-lived: it shows the conversation as it is at
/// the moment it was made.
class ScreenPainter {
public:
    explicit ScreenPainter(const ConversationHost& host);

    [[nodiscard]] const ConversationBackdrop& conversation() const { return m_conversation; }
    /// The ground and, on it, the conversation; in points of the screen.
    void paintBehind(Canvas& canvas) const;
    /// On a picture of the whole screen that is finished but for these.
    void paintAbove(Bitmap& screen, int scale) const;
    /// The pixels of the indicator; empty without one.
    [[nodiscard]] PixelRect indicator(int scale) const;

private:
    CGRect m_bounds;
    UIUserInterfaceStyle m_style;
    ConversationBackdrop m_conversation;
};
