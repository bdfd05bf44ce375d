#pragma once

#include "platform/uikit/window/WindowRenderer.h"
#include "simulator/pictures/ScreenPainter.h"

#include <optional>

/// What has changed on the phone's screen, in its pixels: first moves, in order, then areas.
struct ScreenChange {
    bool whole = false;
    std::vector<WindowFrame::Move> moves;
    std::vector<PixelRect> areas;

    [[nodiscard]] bool isEmpty() const { return !whole && moves.empty() && areas.empty(); }
};

/// A picture of the whole phone that is kept up to date: byte for byte what takePicture() would give, for the price of
/// what changed. Made and owned by the live phone, one per host; nothing is painted between calls of update().
class LiveScreen {
public:
    explicit LiveScreen(ConversationHost& host);

    [[nodiscard]] const Bitmap& bitmap() const { return m_bitmap; }
    /// Draws what has changed since the last call.
    [[nodiscard]] ScreenChange update();
    /// The conversation around the extension has changed in another way than by its presentation or appearance.
    void conversationChanged() { m_shown.reset(); }
    /// The views around the extension, for touches.
    [[nodiscard]] const ConversationBackdrop& conversation();

private:
    /// What the picture around the extension depends on.
    struct Surroundings {
        bool isOpen;
        MSMessagesAppPresentationStyle presentation;
        UIUserInterfaceStyle appearance;
        std::optional<NSURL> openedLink;
        friend bool operator==(const Surroundings&, const Surroundings&) = default;
    };
    [[nodiscard]] Surroundings surroundings() const;
    void renew();
    void paintWhole();
    [[nodiscard]] ScreenChange takeFrame();
    void copy(const PixelRect& area);
    void paintAbove(ScreenChange& change);

    ConversationHost& m_host;
    int m_scale;
    Bitmap m_bitmap;
    Bitmap m_aboveGround; // what lies under the home indicator
    std::optional<Surroundings> m_shown;
    bool m_isWhole = false; // false: everything has to be painted
    std::optional<ScreenPainter> m_painter;
    std::optional<WindowRenderer> m_renderer; // none while the extension is closed
    PixelRect m_extension;                    // where the window lies
};
