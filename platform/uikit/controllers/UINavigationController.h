#pragma once

#include "platform/uikit/controllers/UIViewController.h"

/// A stack of screens, the top one shown. Its bar is only a flag here: the extension hides it.
class UINavigationController : public UIViewController {
public:
    using UIViewController::UIViewController;

    void loadView() override;

    [[nodiscard]] const std::vector<std::shared_ptr<UIViewController>>& viewControllers() const {
        return childViewControllers();
    }
    [[nodiscard]] std::shared_ptr<UIViewController> topViewController() const;
    void pushViewControllerAnimated(const std::shared_ptr<UIViewController>& controller, bool animated);
    /// The popped controller; null when only the root is left, which is never popped.
    std::shared_ptr<UIViewController> popViewControllerAnimated(bool animated);

    [[nodiscard]] bool isNavigationBarHidden() const { return m_barHidden; }
    void setNavigationBarHidden(bool hidden) { m_barHidden = hidden; }

private:
    void showTop();

    bool m_barHidden = false;
};
