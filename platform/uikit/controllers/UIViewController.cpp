#include "platform/uikit/controllers/UIViewController.h"

#include "platform/runtime/SourceLocation.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UIStoryboard.h"
#include "platform/uikit/view/UIView.h"
#include "platform/uikit/window/UIScreen.h"

UIViewController::~UIViewController() {
    for (const std::shared_ptr<UIViewController>& child : m_children) {
        child->m_parent = nullptr;
    }
    if (m_view) {
        m_view->setViewController(nullptr);
    }
}

void UIViewController::setStoryboardSource(const std::shared_ptr<UIStoryboard>& storyboard,
                                           std::function<std::shared_ptr<UIView>(UIViewController&)> viewLoader) {
    m_storyboard = storyboard;
    m_viewLoader = std::move(viewLoader);
}

// The view.

std::shared_ptr<UIView> UIViewController::view() {
    if (!m_view) {
        loadView();
        if (!m_view) {
            fatalErrorAt(*this, "loadView has set no view");
        }
        viewDidLoad();
    }
    return m_view;
}

void UIViewController::setView(const std::shared_ptr<UIView>& view) {
    if (m_view == view) {
        return;
    }
    if (m_view) {
        m_view->setViewController(nullptr);
    }
    m_view = view;
    if (m_view) {
        m_view->setViewController(this);
    }
}

void UIViewController::loadView() {
    std::shared_ptr<UIView> view = m_viewLoader ? m_viewLoader(*this) : nullptr;
    if (!view) {
        view = std::make_shared<UIView>(UIScreen::mainScreen().bounds());
        view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    }
    setView(view);
}

void UIViewController::viewWillMoveToWindow(bool inWindow) {
    if (m_appearing == inWindow) {
        return;
    }
    m_appearing = inWindow;
    inWindow ? viewWillAppear(false) : viewWillDisappear(false);
}

void UIViewController::viewDidMoveToWindow(bool inWindow) {
    if (m_appearing != inWindow || m_appeared == inWindow) {
        return;
    }
    m_appeared = inWindow;
    inWindow ? viewDidAppear(false) : viewDidDisappear(false);
}

// Containment.

void UIViewController::addChildViewController(const std::shared_ptr<UIViewController>& child) {
    for (const UIViewController* ancestor = this; ancestor != nullptr; ancestor = ancestor->m_parent) {
        if (ancestor == child.get()) {
            fatalErrorAt(*this, "A view controller cannot be its own child");
        }
    }
    if (child->m_parent == this) {
        return;
    }
    if (child->m_parent != nullptr) {
        child->removeFromParentViewController();
    }
    child->willMoveToParentViewController(this);
    m_children.push_back(child);
    child->m_parent = this;
}

void UIViewController::removeFromParentViewController() {
    if (m_parent == nullptr) {
        return;
    }
    const std::shared_ptr<UIViewController> self = strong(this); // the parent may hold the last reference
    m_parent->forgetChild(*this);
    m_parent = nullptr;
    didMoveToParentViewController(nullptr);
}

void UIViewController::forgetChild(const UIViewController& child) {
    std::erase_if(m_children, [&](const auto& candidate) { return candidate.get() == &child; });
}

std::shared_ptr<UINavigationController> UIViewController::navigationController() const {
    for (UIViewController* ancestor = m_parent; ancestor != nullptr; ancestor = ancestor->m_parent) {
        if (auto* navigation = dynamic_cast<UINavigationController*>(ancestor)) {
            return strong(navigation);
        }
    }
    return nullptr;
}

std::shared_ptr<NSExtensionContext> UIViewController::extensionContext() const {
    for (const UIViewController* controller = this; controller != nullptr; controller = controller->m_parent) {
        if (controller->m_extensionContext) {
            return controller->m_extensionContext;
        }
    }
    return nullptr;
}

UIResponder* UIViewController::nextResponder() const {
    return m_view ? m_view->superview() : nullptr;
}
