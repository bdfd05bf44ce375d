#include "platform/uikit/view/UIView.h"

#include "platform/uikit/window/UIWindow.h"

#include <algorithm>
#include <array>

namespace {

/// Along one axis: the distance before a view, its length, the distance after it.
using Parts = std::array<CGFloat, 3>;
using Bits = std::array<unsigned, 3>;

constexpr Bits across{UIViewAutoresizingFlexibleLeftMargin, UIViewAutoresizingFlexibleWidth,
                      UIViewAutoresizingFlexibleRightMargin};
constexpr Bits down{UIViewAutoresizingFlexibleTopMargin, UIViewAutoresizingFlexibleHeight,
                    UIViewAutoresizingFlexibleBottomMargin};

/// Spreads a change of the superview's length over the parts that are flexible, in proportion to what they have.
Parts resized(Parts parts, CGFloat change, unsigned mask, const Bits& bits) {
    int count = 0;
    CGFloat total = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if ((mask & bits[i]) != 0) {
            ++count;
            total += parts[i];
        }
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if ((mask & bits[i]) != 0) {
            parts[i] += total > 0 ? change * parts[i] / total : change / count;
        }
    }
    parts[1] = std::max<CGFloat>(parts[1], 0);
    return parts;
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
        const Parts x = resized({frame.minX(), frame.size.width, before.width - frame.maxX()}, wider, mask, across);
        const Parts y = resized({frame.minY(), frame.size.height, before.height - frame.maxY()}, taller, mask, down);
        subview->place(CGRectMake(x[0], y[0], x[1], y[1]));
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
