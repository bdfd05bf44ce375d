#include "platform/uikit/table/UITableView.h"

#include "platform/uikit/table/UITableViewCell.h"
#include "platform/uikit/window/UITouch.h"

void UITableView::touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) {
    UIScrollView::touchesBeganWithEvent(touches, event);
    const std::shared_ptr<UITouch> touch = draggingTouchIn(touches);
    if (touch) {
        m_touched = indexPathForRowAtPoint(touch->locationInView(this));
        highlightTouchedRow(true);
    }
}

void UITableView::touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) {
    UIScrollView::touchesMovedWithEvent(touches, event);
    if (isDragging()) {
        forgetTouch();
    }
}

void UITableView::touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) {
    const std::shared_ptr<UITableView> self = strong(this);
    const std::shared_ptr<UITouch> touch = draggingTouchIn(touches);
    UIScrollView::touchesEndedWithEvent(touches, event);
    if (!touch) {
        return;
    }
    const std::optional<NSIndexPath> touched = m_touched;
    forgetTouch();
    if (touched && indexPathForRowAtPoint(touch->locationInView(this)) == touched) {
        selectRow(*touched);
    }
}

void UITableView::touchesCancelledWithEvent(const TouchSet& touches, UIEvent* event) {
    if (draggingTouchIn(touches)) {
        forgetTouch();
    }
    UIScrollView::touchesCancelledWithEvent(touches, event);
}

void UITableView::highlightTouchedRow(bool highlighted) {
    if (const auto cell = m_touched ? cellForRowAtIndexPath(*m_touched) : nullptr) {
        cell->setHighlighted(highlighted);
    }
}

void UITableView::forgetTouch() {
    highlightTouchedRow(false);
    m_touched.reset();
}

/// The delegate comes last: it may reload the table or drop it.
void UITableView::selectRow(NSIndexPath indexPath) {
    if (m_selected && m_selected != indexPath) {
        deselectRowAtIndexPath(*m_selected);
    }
    m_selected = indexPath;
    if (const auto cell = cellForRowAtIndexPath(indexPath)) {
        cell->setSelected(true);
    }
    if (const std::shared_ptr<UITableViewDelegate> delegate = this->delegate()) {
        delegate->tableViewDidSelectRowAtIndexPath(*this, indexPath);
    }
}

void UITableView::deselectRowAtIndexPath(NSIndexPath indexPath) {
    if (m_selected != indexPath) {
        return;
    }
    m_selected.reset();
    if (const auto cell = cellForRowAtIndexPath(indexPath)) {
        cell->setSelected(false);
    }
}
