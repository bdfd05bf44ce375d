#include "platform/uikit/UIWindow.h"

#include "platform/uikit/LayoutPass.h"
#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIViewController.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t mostDamagedRects = 8; // beyond that, one rectangle around all is cheaper

bool covers(const CGRect& outer, const CGRect& inner) {
    return outer.minX() <= inner.minX() && outer.minY() <= inner.minY() && outer.maxX() >= inner.maxX() &&
           outer.maxY() >= inner.maxY();
}

} // namespace

UIWindow::UIWindow(const CGRect& frame) : UIView(frame) {
    UIWindow::invalidate(bounds());
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
            m_activeTouches.push_back({touch, view});
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
        const std::shared_ptr<UIView> view = position->view; // kept while it is told
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

bool UIWindow::needsLayout() const {
    return LayoutPass::isDue(*this);
}

// Damage.

std::vector<CGRect> UIWindow::takeDamage() {
    return std::exchange(m_damage, {});
}

void UIWindow::invalidate(const CGRect& rect) {
    const CGRect visible = rect.intersection(bounds());
    if (visible.isEmpty() ||
        std::any_of(m_damage.begin(), m_damage.end(), [&](const CGRect& known) { return covers(known, visible); })) {
        return;
    }
    m_damage.erase(
        std::remove_if(m_damage.begin(), m_damage.end(), [&](const CGRect& known) { return covers(visible, known); }),
        m_damage.end());
    m_damage.push_back(visible);
    if (m_damage.size() > mostDamagedRects) {
        CGRect all;
        for (const CGRect& known : m_damage) {
            all = all.unionWith(known);
        }
        m_damage = {all};
    }
}
