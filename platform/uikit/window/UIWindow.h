#pragma once

#include "platform/graphics/UIColor.h"
#include "platform/graphics/UIFont.h"
#include "platform/uikit/view/UIView.h"
#include "platform/uikit/window/ScrollMove.h"
#include "platform/uikit/window/UITouch.h"

/// One thing that changed on a window since its last frame: an area to be painted again, or a scroll view whose content
/// moved. The order of changes counts, since a later move carries earlier ones along.
struct WindowChange {
    CGRect area; // of a repaint, in the window's coordinates
    /// Of a move: the scroll view. Of a repaint: the view whose drawing alone has changed in the area, or none.
    std::weak_ptr<UIView> view;
    CGFloat distance = 0; // of a move: how far the content went down, in points
    ScrollMove move;      // as the tree was at that moment

    [[nodiscard]] bool isMove() const { return distance != 0; }
};

/// The root of a view tree: receives touches, runs layout passes and collects what must be painted again. Made and
/// owned by the host.
class UIWindow : public UIView {
public:
    explicit UIWindow(const CGRect& frame);
    ~UIWindow() override;

    /// Adds the controller's view, filling the window.
    void setRootViewController(const std::shared_ptr<UIViewController>& controller);
    /// Delivers touches: a beginning touch goes to the view it hits, the later ones to that same view. The view that
    /// a touch is sent to is kept alive until the touch has ended.
    void sendEvent(UIEvent& event);

    /// What the device's bars and corners cover along the window's edges; set by the host.
    [[nodiscard]] const UIEdgeInsets& windowSafeAreaInsets() const { return m_safeArea; }
    void setWindowSafeAreaInsets(const UIEdgeInsets& insets);
    [[nodiscard]] UIUserInterfaceStyle userInterfaceStyle() const { return m_style; }
    void setUserInterfaceStyle(UIUserInterfaceStyle style);
    /// The reader has set another text size: for the screen, and for all that this window shows.
    void setContentSizeCategory(UIContentSizeCategory category);

    /// True when something was marked for layout since the last pass.
    [[nodiscard]] bool needsLayout() const { return isLayoutDue(); }
    /// What happened to the picture since the last call, in order.
    [[nodiscard]] std::vector<WindowChange> takeChanges();
    /// The content of a scroll view in this window went down by `distance` points.
    void contentMoved(UIView& scrolled, CGFloat distance);

protected:
    void invalidate(const CGRect& rect, UIView* drawn) override;

private:
    struct ActiveTouch {
        std::shared_ptr<UITouch> touch;
        std::shared_ptr<UIView> view;
        std::weak_ptr<UIView> list; // that the view stood in when the touch began, if any

        /// A row that scrolled away under the finger has left its list, which goes on with the touch.
        [[nodiscard]] std::shared_ptr<UIView> receiver(const UIView& window) const;
    };
    void beginTouches(const TouchSet& touches, UIEvent& event);
    void deliver(const TouchSet& touches, UITouchPhase phase, UIEvent& event);
    void note(const WindowChange& change);

    std::vector<ActiveTouch> m_activeTouches;
    std::shared_ptr<UIViewController> m_root;
    UIEdgeInsets m_safeArea;
    UIUserInterfaceStyle m_style = UIUserInterfaceStyle::light;
    std::vector<WindowChange> m_changes;
};
