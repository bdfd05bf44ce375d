#pragma once

#include "platform/uikit/window/UIWindow.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Something on the screen that a person could name: a view with a text, a label for assistive tools or an identifier.
/// Short-lived: it refers to the window, and its frame is that of the moment at which it was made.
class ScreenElement {
public:
    ScreenElement(UIWindow& window, std::shared_ptr<UIView> view);

    [[nodiscard]] const std::shared_ptr<UIView>& view() const { return m_view; }
    /// Line breaks count as spaces.
    [[nodiscard]] const std::vector<std::string>& texts() const { return m_texts; }
    [[nodiscard]] const std::string& identifier() const { return m_view->accessibilityIdentifier(); }
    /// In the window's coordinates.
    [[nodiscard]] const CGRect& frame() const { return m_frame; }

    /// How much of it can be seen, from 0 to 1: what is inside all clipping ancestors and not painted over.
    [[nodiscard]] double visibleShare() const;
    /// Whether so much of it can be seen that it counts as visible.
    [[nodiscard]] bool isVisible() const { return visibleShare() >= 0.5; }
    /// Whether no control that it is or stands in is disabled.
    [[nodiscard]] bool isEnabled() const;
    /// Where a finger would touch it: the visible point nearest to its middle at which it, a view around or inside it,
    /// or the control that spans it receives the touch. None when there is no such point.
    [[nodiscard]] std::optional<CGPoint> pointToTouch() const;
    /// What a touch in the middle would go to instead, in words.
    [[nodiscard]] std::string receiver() const;

private:
    [[nodiscard]] std::vector<CGPoint> visiblePoints() const;
    [[nodiscard]] bool takesTouchesOf(const UIView& hit) const;

    UIWindow* m_window;
    std::shared_ptr<UIView> m_view;
    std::vector<std::string> m_texts;
    CGRect m_frame;
    CGRect m_visible; // the part of the frame inside all clipping ancestors; empty when hidden
};
