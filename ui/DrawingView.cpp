#include "ui/DrawingView.h"

#include "platform/graphics/UIImage.h"
#include "platform/runtime/ClassRegistry.h"
#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/window/UITouch.h"

#include <cstddef>

namespace {

constexpr int pencilTag = 100001;
constexpr CGRect pencilFrame = CGRectMake(0, 0, 100, 215);
constexpr CGFloat pencilDistance = 90; // right of and above the finger

std::shared_ptr<UIColor> opaqueBlack() {
    return UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 1);
}

std::shared_ptr<UIImageView> makePencilIcon() {
    auto icon = std::make_shared<UIImageView>(pencilFrame);
    icon->setImage(UIImage::imageNamed("pencil"));
    icon->setContentMode(UIViewContentMode::scaleAspectFill);
    icon->setClipsToBounds(false);
    icon->setTag(pencilTag);
    icon->setHidden(true);
    return icon;
}

CGPoint midpoint(CGPoint one, CGPoint other) {
    return {(one.x + other.x) * 0.5, (one.y + other.y) * 0.5};
}

/// Quadratic segments through the midpoints of neighbouring points, each point but the last as control point, and a
/// straight line to the last. `points` is not empty.
std::shared_ptr<UIBezierPath> smoothedCurve(const std::vector<CGPoint>& points) {
    std::shared_ptr<UIBezierPath> curve = UIBezierPath::bezierPath();
    curve->moveToPoint(points.front());
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        curve->addQuadCurveToPointControlPoint(midpoint(points[i], points[i + 1]), points[i]);
    }
    curve->addLineToPoint(points.back());
    return curve;
}

} // namespace

DrawingView::DrawingView(const CGRect& frame)
    : UIView(frame), m_strokeColor(opaqueBlack()), m_pencilIcon(makePencilIcon()) {
    setBackgroundColor(opaqueBlack());
}

DrawingView::DrawingView(const NSCoder& coder)
    : UIView(coder), m_strokeColor(opaqueBlack()), m_pencilIcon(makePencilIcon()) {
    setBackgroundColor(opaqueBlack());
}

void DrawingView::setStrokeColor(const std::shared_ptr<UIColor>& color) {
    if (!color) {
        fatalErrorAt(*this, "the strokeColor is null");
    }
    m_strokeColor = color;
    setNeedsDisplay();
}

void DrawingView::setStrokeWidth(CGFloat width) {
    m_strokeWidth = width;
    setNeedsDisplay();
}

void DrawingView::setDelegate(const std::shared_ptr<DrawingViewDelegate>& delegate) {
    const auto object = std::dynamic_pointer_cast<NSObject>(delegate);
    if (delegate && !(object && canBeAskedForSelectors(*object))) {
        fatalErrorAt(*this, "the delegate is of no class that can be asked what it implements");
    }
    m_delegate = delegate;
}

void DrawingView::clear() {
    if (m_paths.empty()) {
        return;
    }
    m_paths.clear();
    setNeedsDisplay();
}

void DrawingView::touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) {
    UIView::touchesBeganWithEvent(touches, event);
    if (const std::optional<CGPoint> location = locationOf(touches)) {
        m_currentStrokePoints = {*location};
        tellDelegate("didBeginDrawing");
        updatePencilIcon(*location, false);
    }
}

void DrawingView::touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) {
    UIView::touchesMovedWithEvent(touches, event);
    if (const std::optional<CGPoint> location = locationOf(touches)) {
        m_currentStrokePoints.push_back(*location);
        updatePencilIcon(*location, false);
        rebuildCurrentPath();
        setNeedsDisplay();
    }
}

void DrawingView::touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) {
    UIView::touchesEndedWithEvent(touches, event);
    if (const std::optional<CGPoint> location = locationOf(touches)) {
        updatePencilIcon(*location, true);
        m_currentPath = nullptr;
        m_currentStrokePoints.clear();
        tellDelegate("didEndDrawing");
    }
}

std::optional<CGPoint> DrawingView::locationOf(const TouchSet& touches) const {
    if (touches.empty()) {
        return std::nullopt;
    }
    return (*touches.begin())->locationInView(this);
}

void DrawingView::rebuildCurrentPath() {
    if (m_currentStrokePoints.empty()) {
        return;
    }
    std::shared_ptr<UIBezierPath> curve = smoothedCurve(m_currentStrokePoints);
    if (m_currentPath && !m_paths.empty()) {
        m_paths.pop_back();
    }
    m_currentPath = curve;
    m_paths.push_back({.path = std::move(curve), .color = m_strokeColor, .width = m_strokeWidth});
}

void DrawingView::updatePencilIcon(CGPoint location, bool hidden) {
    if (m_isPencilVisible && !viewWithTag(pencilTag)) {
        addSubview(m_pencilIcon);
    }
    if (!m_isPencilVisible) {
        return;
    }
    m_pencilIcon->setCenter({location.x + pencilDistance, location.y - pencilDistance});
    m_pencilIcon->setHidden(hidden);
}

void DrawingView::tellDelegate(const char* selector) {
    const auto object = std::dynamic_pointer_cast<NSObject>(m_delegate.lock());
    if (object && respondsToSelector(*object, selector)) {
        performSelector(*object, selector, nullptr);
    }
}

void DrawingView::drawRect(const CGRect& rect) {
    UIView::drawRect(rect);
    for (const PathWithProperties& stroke : m_paths) {
        stroke.color->set();
        stroke.path->setLineWidth(stroke.width);
        stroke.path->setLineJoinStyle(CGLineJoin::round);
        stroke.path->setLineCapStyle(CGLineCap::round);
        stroke.path->stroke();
    }
}
