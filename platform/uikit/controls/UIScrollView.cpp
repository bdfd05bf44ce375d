#include "platform/uikit/controls/UIScrollView.h"

#include "platform/uikit/window/UIScreen.h"
#include "platform/uikit/window/UITouch.h"

#include <algorithm>
#include <cmath>

namespace {

/// A finger that moved no farther still taps.
constexpr CGFloat tapRadius = 10;

CGFloat snapped(CGFloat points) {
    return UIScreen::mainScreen().grid().snapped(points);
}

CGFloat orZero(CGFloat points) {
    return std::isfinite(points) ? points : 0;
}

/// Content smaller than the view stays at its beginning.
CGFloat clampedAlong(CGFloat offset, CGFloat insetBefore, CGFloat content, CGFloat insetAfter, CGFloat visible) {
    const CGFloat first = -insetBefore;
    const CGFloat last = std::max(first, content + insetAfter - visible);
    return snapped(std::clamp(orZero(offset), first, last));
}

} // namespace

UIScrollView::UIScrollView(const CGRect& frame) : UIView(frame) {
    setClipsToBounds(true);
}

UIScrollView::UIScrollView(const NSCoder& coder) : UIView(coder) {
    setClipsToBounds(coder.boolean("clipsSubviews").value_or(true));
    m_showsIndicator = coder.boolean("showsVerticalScrollIndicator").value_or(true);
    m_scrollEnabled = coder.boolean("scrollEnabled").value_or(true);
    setContentInset(coder.insets("contentInset").value_or(m_contentInset));
}

void UIScrollView::setContentOffset(CGPoint offset) {
    const CGPoint before = contentOffset();
    scrollTo(clampedOffset(offset));
    if (contentOffset() != before) {
        setNeedsLayout();
    }
}

void UIScrollView::setContentSize(CGSize size) {
    m_contentSize = {std::max<CGFloat>(orZero(size.width), 0), std::max<CGFloat>(orZero(size.height), 0)};
    setContentOffset(contentOffset());
}

void UIScrollView::setContentInset(const UIEdgeInsets& inset) {
    const bool atTop = contentOffset().y <= snapped(-m_contentInset.top);
    const bool atLeft = contentOffset().x <= snapped(-m_contentInset.left);
    m_contentInset = {orZero(inset.top), orZero(inset.left), orZero(inset.bottom), orZero(inset.right)};
    setContentOffset(
        {atLeft ? -m_contentInset.left : contentOffset().x, atTop ? -m_contentInset.top : contentOffset().y});
}

CGPoint UIScrollView::clampedOffset(CGPoint offset) const {
    const CGSize visible = bounds().size;
    return {
        clampedAlong(offset.x, m_contentInset.left, m_contentSize.width, m_contentInset.right, orZero(visible.width)),
        clampedAlong(offset.y, m_contentInset.top, m_contentSize.height, m_contentInset.bottom,
                     orZero(visible.height))};
}

void UIScrollView::layoutSubviews() {
    UIView::layoutSubviews();
    setContentOffset(contentOffset()); // a changed size may leave it out of range
}

void UIScrollView::touchesBeganWithEvent(const TouchSet& touches, UIEvent*) {
    if (!m_touch.expired() || touches.empty()) {
        return;
    }
    const std::shared_ptr<UITouch> touch = *touches.begin();
    m_touch = touch;
    m_dragging = false;
    m_dragStart = touch->locationInView(nullptr);
    m_dragStartOffset = contentOffset();
}

void UIScrollView::touchesMovedWithEvent(const TouchSet& touches, UIEvent*) {
    const std::shared_ptr<UITouch> touch = draggingTouchIn(touches);
    if (!touch || !m_scrollEnabled) {
        return;
    }
    const CGPoint finger = touch->locationInView(nullptr);
    const CGPoint moved{finger.x - m_dragStart.x, finger.y - m_dragStart.y};
    m_dragging = m_dragging || std::hypot(moved.x, moved.y) > tapRadius;
    if (m_dragging) {
        setContentOffset({m_dragStartOffset.x - moved.x, m_dragStartOffset.y - moved.y});
    }
}

void UIScrollView::touchesEndedWithEvent(const TouchSet& touches, UIEvent*) {
    endTouch(touches);
}

void UIScrollView::touchesCancelledWithEvent(const TouchSet& touches, UIEvent*) {
    endTouch(touches);
}

void UIScrollView::endTouch(const TouchSet& touches) {
    if (draggingTouchIn(touches)) {
        m_touch.reset();
        m_dragging = false;
    }
}

std::shared_ptr<UITouch> UIScrollView::draggingTouchIn(const TouchSet& touches) const {
    std::shared_ptr<UITouch> touch = m_touch.lock();
    return touches.count(touch) > 0 ? touch : nullptr;
}

void UIScrollView::setContentSizeAndOffset(CGSize size, CGPoint offset) {
    m_contentSize = size;
    const CGPoint before = contentOffset();
    scrollTo(clampedOffset(offset));
    m_dragStartOffset.x += contentOffset().x - before.x;
    m_dragStartOffset.y += contentOffset().y - before.y;
}

void UIScrollView::scrollTo(CGPoint offset) {
    if (offset != contentOffset()) {
        setBounds({offset, bounds().size});
    }
}
