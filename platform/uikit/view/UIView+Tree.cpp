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

/// A view's way into a window or out of one, or neither: tells the controllers of the view and of all inside it, before
/// and after.
class WindowMove {
public:
    WindowMove(UIView& view, bool wasIn, bool isIn) : m_view(view), m_wasIn(wasIn), m_isIn(isIn) {
        if (wasIn != isIn) {
            collectControllers(view, m_controllers);
        }
        for (const std::shared_ptr<UIViewController>& controller : m_controllers) {
            controller->viewWillMoveToWindow(m_isIn);
        }
    }

    void finish() const {
        const auto responder = std::dynamic_pointer_cast<UIView>(UIResponder::firstResponder());
        if (m_wasIn && !m_isIn && responder && responder->isDescendantOfView(m_view)) {
            responder->resignFirstResponder();
        }
        for (const std::shared_ptr<UIViewController>& controller : m_controllers) {
            controller->viewDidMoveToWindow(m_isIn);
        }
    }

private:
    UIView& m_view;
    bool m_wasIn;
    bool m_isIn;
    Controllers m_controllers;
};

auto find(std::vector<std::shared_ptr<UIView>>& views, const UIView& view) {
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

void UIView::bringSubviewToFront(UIView& view) {
    const auto position = find(m_subviews, view);
    if (position != m_subviews.end()) {
        std::rotate(position, position + 1, m_subviews.end());
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
    const WindowMove move(*added, added->window() != nullptr, window() != nullptr);
    added->detachFromSuperview();
    const std::size_t position = std::min(index, m_subviews.size());
    m_subviews.insert(m_subviews.begin() + static_cast<std::ptrdiff_t>(position), added);
    added->m_superview = this;
    added->systemStructureChanged();
    added->setNeedsLayout();
    setNeedsLayout();
    added->setNeedsRepaint();
    move.finish();
}

void UIView::removeFromSuperview() {
    if (m_superview == nullptr) {
        return;
    }
    const std::shared_ptr<UIView> self = strong(this);
    const WindowMove move(*this, window() != nullptr, false);
    detachFromSuperview();
    move.finish();
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
        std::erase_if(ancestor->m_constraints, [&](const std::shared_ptr<NSLayoutConstraint>& constraint) {
            const bool isDropped = reachesIn(constraint->first()) || reachesIn(constraint->second());
            if (isDropped) {
                constraint->setHolder({});
            }
            return isDropped;
        });
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
