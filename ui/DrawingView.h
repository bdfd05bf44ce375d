#pragma once

#include "platform/graphics/UIBezierPath.h"
#include "platform/graphics/UIColor.h"
#include "platform/uikit/controls/UIImageView.h"

#include <memory>
#include <optional>
#include <vector>

/// Told when a stroke begins and when it ends. Both operations are optional: a delegate is an NSObject that registers
/// the actions it implements, "didBeginDrawing" and "didEndDrawing", neither with an argument. Held weakly; one of no
/// registered class cannot be asked and stops the program when it is set.
class DrawingViewDelegate {
public:
    virtual ~DrawingViewDelegate() = default;
};

/// One stroke of the drawing canvas: its smoothed curve, with the colour and width (points) that counted when the
/// curve was last built. A value.
struct PathWithProperties {
    std::shared_ptr<UIBezierPath> path;
    std::shared_ptr<UIColor> color;
    CGFloat width = 0;
};

/// A black canvas on which one finger draws. Each stroke is smoothed by quadratic segments through the midpoints of its
/// touch locations and keeps its colour and width; all strokes are kept as curves and drawn in order. Interface files
/// name it as a view's class. A cancelled touch leaves everything as at its last move: the next stroke's first move
/// then takes the cancelled one's place.
class DrawingView : public UIView {
public:
    explicit DrawingView(const CGRect& frame);
    explicit DrawingView(const NSCoder& coder);

    /// Of the strokes drawn from now on; null stops the program.
    [[nodiscard]] const std::shared_ptr<UIColor>& strokeColor() const { return m_strokeColor; }
    void setStrokeColor(const std::shared_ptr<UIColor>& color);
    /// Points, of the strokes drawn from now on.
    [[nodiscard]] CGFloat strokeWidth() const { return m_strokeWidth; }
    void setStrokeWidth(CGFloat width);
    [[nodiscard]] std::shared_ptr<DrawingViewDelegate> delegate() const { return m_delegate.lock(); }
    void setDelegate(const std::shared_ptr<DrawingViewDelegate>& delegate);
    /// Whether a pencil follows the finger. Takes effect at the next touch.
    [[nodiscard]] bool showPencil() const { return m_isPencilVisible; }
    void setShowPencil(bool show) { m_isPencilVisible = show; }

    /// Removes all strokes.
    void clear();
    /// Includes the stroke in progress from its first move on.
    [[nodiscard]] int numberOfStrokes() const { return static_cast<int>(m_paths.size()); }

    void touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) override;
    void drawRect(const CGRect& rect) override;

private:
    /// Of the first touch; none for an empty set.
    [[nodiscard]] std::optional<CGPoint> locationOf(const TouchSet& touches) const;
    void rebuildCurrentPath();
    void updatePencilIcon(CGPoint location, bool hidden);
    void tellDelegate(const char* selector);

    std::shared_ptr<UIColor> m_strokeColor;
    CGFloat m_strokeWidth = 40.0;
    std::weak_ptr<DrawingViewDelegate> m_delegate;
    bool m_isPencilVisible = false;
    std::vector<CGPoint> m_currentStrokePoints;
    std::vector<PathWithProperties> m_paths;
    std::shared_ptr<UIBezierPath> m_currentPath; // null between strokes
    std::shared_ptr<UIImageView> m_pencilIcon;
};
