#pragma once

#include "platform/foundation/NSExtensionContext.h"
#include "platform/runtime/NSCoder.h"
#include "platform/uikit/window/UIResponder.h"

#include <functional>
#include <memory>
#include <vector>

class UINavigationController;
class UIStoryboard;
class UIView;

/// One screen or a part of one. Its view is loaded when it is first asked for. A controller owns its view and its
/// children; a child's parent is a plain back reference.
class UIViewController : public UIResponder {
public:
    UIViewController() = default;                          // initWithNibName:bundle: without a nib
    explicit UIViewController(const NSCoder& /*coder*/) {} // initWithCoder:
    ~UIViewController() override;

    /// Loads the view at the first call: loadView, then viewDidLoad.
    [[nodiscard]] std::shared_ptr<UIView> view();
    void setView(const std::shared_ptr<UIView>& view);
    [[nodiscard]] bool isViewLoaded() const { return m_view != nullptr; }
    /// Makes the scene's view, or an empty one for a controller without a scene.
    virtual void loadView();
    virtual void viewDidLoad() {}
    virtual void viewWillAppear(bool /*animated*/) {}    // viewWillAppear:
    virtual void viewDidAppear(bool /*animated*/) {}     // viewDidAppear:
    virtual void viewWillDisappear(bool /*animated*/) {} // viewWillDisappear:
    virtual void viewDidDisappear(bool /*animated*/) {}  // viewDidDisappear:

    [[nodiscard]] const std::vector<std::shared_ptr<UIViewController>>& childViewControllers() const {
        return m_children;
    }
    [[nodiscard]] UIViewController* parentViewController() const { return m_parent; }
    /// Sends the child willMoveToParentViewController: first, as the platform does.
    void addChildViewController(const std::shared_ptr<UIViewController>& child); // addChildViewController:
    /// Sends didMoveToParentViewController: with none afterwards. May release the last reference to this controller.
    void removeFromParentViewController();
    virtual void willMoveToParentViewController(UIViewController* /*parent*/) {} // willMoveToParentViewController:
    virtual void didMoveToParentViewController(UIViewController* /*parent*/) {}  // didMoveToParentViewController:

    /// The nearest navigation controller above; null when there is none.
    [[nodiscard]] std::shared_ptr<UINavigationController> navigationController() const;
    /// The storyboard this controller was made from; null when it was made in code.
    [[nodiscard]] std::shared_ptr<UIStoryboard> storyboard() const { return m_storyboard; }
    /// The host's context, held by the nearest ancestor (or this controller) that was given one; null without a host.
    [[nodiscard]] std::shared_ptr<NSExtensionContext> extensionContext() const;
    void setExtensionContext(const std::shared_ptr<NSExtensionContext>& context) { m_extensionContext = context; }

    [[nodiscard]] UIResponder* nextResponder() const override;

    /// For the reader of storyboards: where the controller came from and how its view is made and connected.
    void setStoryboardSource(const std::shared_ptr<UIStoryboard>& storyboard,
                             std::function<std::shared_ptr<UIView>(UIViewController&)> viewLoader);
    /// For the view, before and after it enters or leaves a window: the appearance calls, each once a change.
    void viewWillMoveToWindow(bool inWindow);
    void viewDidMoveToWindow(bool inWindow);

private:
    void forgetChild(const UIViewController& child);

    bool m_appearing = false; // the last "will" call said that the view appears
    bool m_appeared = false;  // the same of the last "did" call
    std::shared_ptr<UIView> m_view;
    std::function<std::shared_ptr<UIView>(UIViewController&)> m_viewLoader;
    std::vector<std::shared_ptr<UIViewController>> m_children;
    UIViewController* m_parent = nullptr;
    std::shared_ptr<UIStoryboard> m_storyboard;
    std::shared_ptr<NSExtensionContext> m_extensionContext;
};
