#include "platform/uikit/window/UIWindow.h"

#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/controls/UIScrollView.h"
#include "platform/uikit/window/UIScreen.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t mostChanges = 64;

void tellContentSizeCategory(UIView& view) {
    view.contentSizeCategoryDidChange();
    for (const std::shared_ptr<UIView>& inside : view.subviews()) {
        tellContentSizeCategory(*inside);
    }
}

std::weak_ptr<UIView> listAround(const UIView& view) {
    UIView* at = view.superview();
    while (at != nullptr && dynamic_cast<UIScrollView*>(at) == nullptr) {
        at = at->superview();
    }
    return at == nullptr ? std::weak_ptr<UIView>() : strong(at);
}

} // namespace

std::shared_ptr<UIView> UIWindow::ActiveTouch::receiver(const UIView& window) const {
    const std::shared_ptr<UIView> around = list.lock();
    return !around || view->isDescendantOfView(window) ? view : around;
}

UIWindow::UIWindow(const CGRect& frame) : UIView(frame) {
    UIWindow::invalidate(bounds(), nullptr);
}

/// Views that outlive the window learn that they are in none.
UIWindow::~UIWindow() {
    while (!subviews().empty()) {
        const std::shared_ptr<UIView> last = subviews().back();
        last->removeFromSuperview();
    }
}

void UIWindow::setRootViewController(const std::shared_ptr<UIViewController>& controller) {
    if (m_root == controller) {
        return;
    }
    const std::shared_ptr<UIViewController> before = m_root;
    m_root = controller;
    if (before && before->isViewLoaded()) {
        before->view()->removeFromSuperview();
    }
    if (controller) {
        const std::shared_ptr<UIView> view = controller->view();
        view->setFrame(bounds());
        view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        addSubview(view);
    }
}

// Touches.

void UIWindow::sendEvent(UIEvent& event) {
    const std::shared_ptr<UIView> self = strong<UIView>(this); // a handler may drop the window
    const TouchSet touches = event.allTouches();
    beginTouches(touches, event);
    deliver(touches, UITouchPhase::moved, event);
    deliver(touches, UITouchPhase::ended, event);
    deliver(touches, UITouchPhase::cancelled, event);
}

/// A view takes one finger at a time; further ones are lost on it.
void UIWindow::beginTouches(const TouchSet& touches, UIEvent& event) {
    for (const std::shared_ptr<UITouch>& touch : touches) {
        if (touch->phase() != UITouchPhase::began) {
            continue;
        }
        const std::shared_ptr<UIView> view = hitTestWithEvent(touch->locationInView(nullptr), &event);
        const bool isBusy = std::any_of(m_activeTouches.begin(), m_activeTouches.end(), [&](const ActiveTouch& active) {
            return active.view == view || active.touch == touch;
        });
        if (view && !isBusy) {
            touch->setView(view);
            m_activeTouches.push_back({touch, view, listAround(*view)});
            view->touchesBeganWithEvent({touch}, &event);
        }
    }
}

void UIWindow::deliver(const TouchSet& touches, UITouchPhase phase, UIEvent& event) {
    for (const std::shared_ptr<UITouch>& touch : touches) {
        const auto position = std::find_if(m_activeTouches.begin(), m_activeTouches.end(),
                                           [&](const ActiveTouch& active) { return active.touch == touch; });
        if (touch->phase() != phase || position == m_activeTouches.end()) {
            continue;
        }
        const std::shared_ptr<UIView> view = position->receiver(*this); // kept while it is told
        if (phase == UITouchPhase::moved) {
            view->touchesMovedWithEvent({touch}, &event);
            continue;
        }
        m_activeTouches.erase(position);
        phase == UITouchPhase::ended ? view->touchesEndedWithEvent({touch}, &event)
                                     : view->touchesCancelledWithEvent({touch}, &event);
    }
}

// Surroundings.

void UIWindow::setWindowSafeAreaInsets(const UIEdgeInsets& insets) {
    if (m_safeArea != insets) {
        m_safeArea = insets;
        setNeedsUpdateConstraints();
    }
}

void UIWindow::setUserInterfaceStyle(UIUserInterfaceStyle style) {
    if (m_style != style) {
        m_style = style;
        setNeedsDisplay();
    }
}

void UIWindow::setContentSizeCategory(UIContentSizeCategory category) {
    if (UIScreen::mainScreen().contentSizeCategory() != category) {
        UIScreen::mainScreen().setContentSizeCategory(category);
        tellContentSizeCategory(*this);
    }
}

// Changes to the picture.

std::vector<WindowChange> UIWindow::takeChanges() {
    return std::exchange(m_changes, {});
}

void UIWindow::contentMoved(UIView& scrolled, CGFloat distance) {
    if (!m_changes.empty() && m_changes.back().isMove() && m_changes.back().view.lock().get() == &scrolled) {
        m_changes.back().distance += distance;
        return;
    }
    note({.area = {}, .view = strong<UIView>(&scrolled), .distance = distance, .move = scrollMoveFor(scrolled)});
}

/// A window that nobody draws forgets the details.
void UIWindow::note(const WindowChange& change) {
    if (m_changes.size() < mostChanges) {
        m_changes.push_back(change);
    } else {
        m_changes = {{.area = bounds(), .view = {}, .distance = 0, .move = {}}};
    }
}

/// Joins what has been invalidated since the last move; what came before it stays apart, for the move carries it along.
void UIWindow::invalidate(const CGRect& rect, UIView* drawn) {
    const WindowChange change{rect.intersection(bounds()), strong<UIView>(drawn), 0, {}};
    const auto includes = [](const WindowChange& one, const WindowChange& other) {
        const std::shared_ptr<UIView> view = one.view.lock();
        return one.area.contains(other.area) && (!view || view == other.view.lock());
    };
    const auto first = std::find_if(m_changes.rbegin(), m_changes.rend(), [](const WindowChange& known) {
                           return known.isMove();
                       }).base();
    if (change.area.isEmpty() ||
        std::any_of(first, m_changes.end(), [&](const WindowChange& known) { return includes(known, change); })) {
        return;
    }
    m_changes.erase(
        std::remove_if(first, m_changes.end(), [&](const WindowChange& known) { return includes(change, known); }),
        m_changes.end());
    note(change);
}
