#include "platform/uikit/controllers/UINavigationController.h"

#include "platform/uikit/view/UIView.h"

std::shared_ptr<UIViewController> UINavigationController::topViewController() const {
    return viewControllers().empty() ? nullptr : viewControllers().back();
}

void UINavigationController::loadView() {
    UIViewController::loadView();
    showTop();
}

void UINavigationController::pushViewControllerAnimated(const std::shared_ptr<UIViewController>& controller,
                                                        bool /*animated*/) {
    addChildViewController(controller);
    if (isViewLoaded()) {
        showTop();
    }
    controller->didMoveToParentViewController(this);
}

std::shared_ptr<UIViewController> UINavigationController::popViewControllerAnimated(bool /*animated*/) {
    if (viewControllers().size() < 2) {
        return nullptr;
    }
    const std::shared_ptr<UIViewController> popped = topViewController();
    popped->willMoveToParentViewController(nullptr);
    popped->removeFromParentViewController();
    if (isViewLoaded()) {
        showTop();
    }
    return popped;
}

void UINavigationController::showTop() {
    const std::shared_ptr<UIView> container = view();
    const std::shared_ptr<UIViewController> top = topViewController();
    const std::vector<std::shared_ptr<UIView>> shown = container->subviews();
    for (const std::shared_ptr<UIView>& view : shown) {
        view->removeFromSuperview();
    }
    if (top) {
        const std::shared_ptr<UIView> view = top->view();
        view->setFrame(container->bounds());
        view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        container->addSubview(view);
    }
}
