#include "platform/uikit/view/UIView.h"

#include "platform/uikit/window/UIWindow.h"

#include <algorithm>

namespace {

/// One axis of a view that is resized with its superview: the distance before it, its length, the distance after it.
struct Span {
    CGFloat before;
    CGFloat length;
    CGFloat after;
};

/// Spreads a change of the superview's length over the flexible parts, in proportion to what they have.
Span resized(Span span, CGFloat change, bool before, bool length, bool after) {
    const int count = static_cast<int>(before) + static_cast<int>(length) + static_cast<int>(after);
    const CGFloat total = (before ? span.before : 0) + (length ? span.length : 0) + (after ? span.after : 0);
    const auto grow = [&](CGFloat& part, bool isFlexible) {
        if (isFlexible) {
            part += total > 0 ? change * part / total : change / count;
        }
    };
    grow(span.before, before);
    grow(span.length, length);
    grow(span.after, after);
    span.length = std::max<CGFloat>(span.length, 0);
    return span;
}

} // namespace

CGRect UIView::frame() const {
    return CGRectMake(m_center.x - m_bounds.size.width / 2, m_center.y - m_bounds.size.height / 2, m_bounds.size.width,
                      m_bounds.size.height);
}

void UIView::setFrame(const CGRect& frame) {
    const CGPoint centerBefore = m_center;
    const CGSize sizeBefore = m_bounds.size;
    place(frame);
    const bool isChanged = m_bounds.size != sizeBefore || (m_center != centerBefore && !isSystemRoot());
    if (isChanged && m_layout.byConstraints) {
        setNeedsUpdateConstraints();
    }
}

void UIView::place(const CGRect& frame) {
    applyGeometry({frame.midX(), frame.midY()}, {m_bounds.origin, frame.size});
}

void UIView::setBounds(const CGRect& bounds) {
    const CGSize sizeBefore = m_bounds.size;
    applyGeometry(m_center, bounds);
    if (m_bounds.size != sizeBefore && m_layout.byConstraints) {
        setNeedsUpdateConstraints();
    }
}

void UIView::setCenter(CGPoint center) {
    const CGSize size = m_bounds.size;
    setFrame(CGRectMake(center.x - size.width / 2, center.y - size.height / 2, size.width, size.height));
}

void UIView::applyGeometry(CGPoint center, const CGRect& bounds) {
    if (center == m_center && bounds == m_bounds) {
        return;
    }
    const CGSize sizeBefore = m_bounds.size;
    if (center == m_center && bounds.size == sizeBefore && bounds.minX() == m_bounds.minX()) {
        moveContent(m_bounds.minY() - bounds.minY());
        return;
    }
    setNeedsRepaint();
    m_center = center;
    m_bounds = bounds;
    if (bounds.size != sizeBefore) {
        resizeSubviews(sizeBefore);
        setNeedsLayout();
        if (isSystemRoot()) {
            setNeedsUpdateConstraints();
        }
    }
    setNeedsRepaint();
}

void UIView::moveContent(CGFloat distance) {
    m_bounds.origin.y -= distance;
    if (UIWindow* shownIn = window()) {
        shownIn->contentMoved(*this, distance);
    }
}

void UIView::resizeSubviews(CGSize before) {
    const CGFloat wider = m_bounds.size.width - before.width;
    const CGFloat taller = m_bounds.size.height - before.height;
    for (const std::shared_ptr<UIView>& subview : m_subviews) {
        const unsigned mask = subview->m_autoresizingMask;
        if (!subview->m_autoresizes || mask == UIViewAutoresizingNone) {
            continue;
        }
        const CGRect frame = subview->frame();
        const Span across =
            resized({frame.minX(), frame.size.width, before.width - frame.maxX()}, wider,
                    (mask & UIViewAutoresizingFlexibleLeftMargin) != 0, (mask & UIViewAutoresizingFlexibleWidth) != 0,
                    (mask & UIViewAutoresizingFlexibleRightMargin) != 0);
        const Span down =
            resized({frame.minY(), frame.size.height, before.height - frame.maxY()}, taller,
                    (mask & UIViewAutoresizingFlexibleTopMargin) != 0, (mask & UIViewAutoresizingFlexibleHeight) != 0,
                    (mask & UIViewAutoresizingFlexibleBottomMargin) != 0);
        subview->place(CGRectMake(across.before, down.before, across.length, down.length));
    }
}

CGPoint UIView::convertPointToView(CGPoint point, const UIView* view) const {
    for (const UIView* from = this; from->m_superview != nullptr; from = from->m_superview) {
        point = point + from->shiftToSuperview();
    }
    return view == nullptr ? point : view->convertPointFromView(point, nullptr);
}

CGPoint UIView::convertPointFromView(CGPoint point, const UIView* view) const {
    if (view != nullptr) {
        return view->convertPointToView(point, this);
    }
    return point - convertPointToView({0, 0}, nullptr); // views are moved, never turned or scaled
}

CGRect UIView::convertRectToView(const CGRect& rect, const UIView* view) const {
    return {convertPointToView(rect.origin, view), rect.size};
}

UIEdgeInsets UIView::safeAreaInsets() const {
    for (const UIView* view = m_superview; view != nullptr; view = view->m_superview) {
        if (view->isLayoutRoot()) {
            return {};
        }
    }
    const UIWindow* window = this->window();
    if (window == nullptr) {
        return {};
    }
    const CGRect rect = convertRectToView(m_bounds, nullptr);
    const CGRect safe = UIEdgeInsetsInsetRect(window->bounds(), window->windowSafeAreaInsets());
    const auto reach = [](CGFloat inset, CGFloat length) { return std::clamp<CGFloat>(inset, 0, length); };
    return {reach(safe.minY() - rect.minY(), rect.size.height), reach(safe.minX() - rect.minX(), rect.size.width),
            reach(rect.maxY() - safe.maxY(), rect.size.height), reach(rect.maxX() - safe.maxX(), rect.size.width)};
}
