#pragma once

#include "platform/uikit/view/UIView.h"

/// A window onto content larger than itself. A finger that moves more than a few points drags the content; while it
/// does, the touch no longer counts as a tap. Subviews are placed in content coordinates, each a layout of its own.
class UIScrollView : public UIView {
public:
    explicit UIScrollView(const CGRect& frame = {});
    explicit UIScrollView(const NSCoder& coder);

    [[nodiscard]] CGPoint contentOffset() const { return bounds().origin; }
    /// Clamped to what content and insets allow, and snapped to device pixels, so that content that is already painted
    /// can be moved.
    void setContentOffset(CGPoint offset);
    [[nodiscard]] CGSize contentSize() const { return m_contentSize; }
    void setContentSize(CGSize size);
    [[nodiscard]] const UIEdgeInsets& contentInset() const { return m_contentInset; }
    /// Content that stands at its beginning stays there: the offset then becomes minus the inset.
    void setContentInset(const UIEdgeInsets& inset);
    [[nodiscard]] bool showsVerticalScrollIndicator() const { return m_showsIndicator; }
    void setShowsVerticalScrollIndicator(bool shows) { m_showsIndicator = shows; }
    [[nodiscard]] bool isDragging() const { return m_dragging; }
    /// The offset nearest to `offset` that shows content and insets only.
    [[nodiscard]] CGPoint clampedOffset(CGPoint offset) const;

    void layoutSubviews() override;
    void touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) override;
    void touchesCancelledWithEvent(const TouchSet& touches, UIEvent* event) override;

protected:
    [[nodiscard]] bool isLayoutRoot() const override { return true; }
    /// For layoutSubviews, which finds out about content above what is seen: the offset moves along, and so does a drag
    /// that is under way.
    void setContentSizeAndOffset(CGSize size, CGPoint offset);
    /// The one touch that can drag, when it is among these; null otherwise.
    [[nodiscard]] std::shared_ptr<UITouch> draggingTouchIn(const TouchSet& touches) const;

private:
    void scrollTo(CGPoint offset);
    void endTouch(const TouchSet& touches);

    CGSize m_contentSize;
    UIEdgeInsets m_contentInset;
    bool m_showsIndicator = true; // never drawn: a picture is of content at rest
    bool m_scrollEnabled = true;  // false where an interface file says so: no finger scrolls
    bool m_dragging = false;
    std::weak_ptr<UITouch> m_touch;
    CGPoint m_dragStart; // window coordinates
    CGPoint m_dragStartOffset;
};
