#include "platform/uikit/view/UIView.h"

#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/window/UIWindow.h"

#include <algorithm>

namespace {

using Controllers = std::vector<std::shared_ptr<UIViewController>>;

/// Of the view and everything inside it, from the top down.
void collectControllers(const UIView& view, Controllers& controllers) {
    if (std::shared_ptr<UIViewController> controller = strong(view.viewController())) {
        controllers.push_back(std::move(controller));
    }
    for (const std::shared_ptr<UIView>& subview : view.subviews()) {
        collectControllers(*subview, controllers);
    }
}

/// A view's way into a window, out of one, or neither: finds the controllers concerned.
struct WindowMove {
    WindowMove(const UIView& view, const UIWindow* before, const UIWindow* after)
        : isMove(before != after), isIn(after != nullptr) {
        if ((before == nullptr) != (after == nullptr)) {
            collectControllers(view, controllers);
        }
    }

    bool isMove;
    bool isIn;
    Controllers controllers;
};

auto find(const std::vector<std::shared_ptr<UIView>>& views, const UIView& view) {
    return std::find_if(views.begin(), views.end(), [&](const auto& candidate) { return candidate.get() == &view; });
}

} // namespace

UIWindow* UIView::window() const {
    return dynamic_cast<UIWindow*>(&topView());
}

UIView& UIView::topView() const {
    const UIView* top = this;
    while (top->m_superview != nullptr) {
        top = top->m_superview;
    }
    return const_cast<UIView&>(*top); // views are never constant objects
}

bool UIView::isDescendantOfView(const UIView& view) const {
    for (const UIView* ancestor = this; ancestor != nullptr; ancestor = ancestor->m_superview) {
        if (ancestor == &view) {
            return true;
        }
    }
    return false;
}

void UIView::addSubview(const std::shared_ptr<UIView>& view) {
    attach(view, m_subviews.size());
}

void UIView::insertSubviewAtIndex(const std::shared_ptr<UIView>& view, std::size_t index) {
    attach(view, index);
}

void UIView::bringSubviewToFront(UIView& view) {
    const auto position = find(m_subviews, view);
    if (position != m_subviews.end()) {
        std::rotate(m_subviews.begin() + (position - m_subviews.begin()),
                    m_subviews.begin() + (position - m_subviews.begin()) + 1, m_subviews.end());
        view.setNeedsRepaint();
    }
}

void UIView::attach(const std::shared_ptr<UIView>& view, std::size_t index) {
    const std::shared_ptr<UIView> added = view; // the argument may be an element of a list that changes here
    if (!added || isDescendantOfView(*added)) {
        fatalErrorAt(*this, added ? "A view cannot be added to itself" : "There is no view to add");
    }
    if (added->m_superview == this) {
        bringSubviewToFront(*added);
        return;
    }
    const WindowMove move(*added, added->window(), window());
    for (const std::shared_ptr<UIViewController>& controller : move.controllers) {
        controller->viewWillMoveToWindow(move.isIn);
    }
    added->detachFromSuperview();
    const std::size_t position = std::min(index, m_subviews.size());
    m_subviews.insert(m_subviews.begin() + static_cast<std::ptrdiff_t>(position), added);
    added->m_superview = this;
    added->systemStructureChanged();
    added->setNeedsLayout();
    setNeedsLayout();
    added->setNeedsRepaint();
    if (move.isMove) {
        added->windowChanged(move.isIn);
    }
    for (const std::shared_ptr<UIViewController>& controller : move.controllers) {
        controller->viewDidMoveToWindow(move.isIn);
    }
}

void UIView::removeFromSuperview() {
    if (m_superview == nullptr) {
        return;
    }
    const std::shared_ptr<UIView> self = strong(this);
    const WindowMove move(*this, window(), nullptr);
    for (const std::shared_ptr<UIViewController>& controller : move.controllers) {
        controller->viewWillMoveToWindow(false);
    }
    detachFromSuperview();
    if (move.isMove) {
        windowChanged(false);
    }
    for (const std::shared_ptr<UIViewController>& controller : move.controllers) {
        controller->viewDidMoveToWindow(false);
    }
}

void UIView::detachFromSuperview() {
    if (m_superview == nullptr) {
        return;
    }
    UIView& superview = *m_superview;
    setNeedsRepaint();
    superview.dropConstraintsInto(*this);
    systemStructureChanged();
    superview.setNeedsLayout();
    m_superview = nullptr;
    systemStructureChanged();
    superview.m_subviews.erase(find(superview.m_subviews, *this));
}

/// Constraints between a view that leaves and those that stay end with its leaving.
void UIView::dropConstraintsInto(const UIView& subtree) {
    const auto reachesIn = [&](const LayoutEnd& end) {
        const std::shared_ptr<UIView> view = end.view.lock();
        return view && view->isDescendantOfView(subtree);
    };
    for (UIView* ancestor = this; ancestor != nullptr; ancestor = ancestor->m_superview) {
        auto& constraints = ancestor->m_constraints;
        constraints.erase(std::remove_if(constraints.begin(), constraints.end(),
                                         [&](const std::shared_ptr<NSLayoutConstraint>& constraint) {
                                             if (!reachesIn(constraint->first()) && !reachesIn(constraint->second())) {
                                                 return false;
                                             }
                                             constraint->setHolder({}, false);
                                             return true;
                                         }),
                          constraints.end());
    }
}

void UIView::windowChanged(bool inWindow) {
    if (!inWindow && isFirstResponder()) {
        resignFirstResponder();
    }
    const std::vector<std::shared_ptr<UIView>> subviews = m_subviews; // what is told may change the list
    for (const std::shared_ptr<UIView>& subview : subviews) {
        if (subview->m_superview == this) {
            subview->windowChanged(inWindow);
        }
    }
}

std::shared_ptr<UIView> UIView::viewWithTag(int tag) {
    if (m_tag == tag) {
        return strong(this);
    }
    for (const std::shared_ptr<UIView>& subview : m_subviews) {
        if (std::shared_ptr<UIView> found = subview->viewWithTag(tag)) {
            return found;
        }
    }
    return nullptr;
}
