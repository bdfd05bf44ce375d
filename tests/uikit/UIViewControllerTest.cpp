#include "platform/uikit/controllers/UIViewController.h"

#include "platform/uikit/controllers/UINavigationController.h"

#include "tests/uikit/ViewFixture.h"

namespace {

/// Writes down what it is told, with its name.
class Screen : public UIViewController {
public:
    Screen(std::string name, std::string& log) : m_name(std::move(name)), m_log(log) {}

    void viewDidLoad() override { note("didLoad"); }
    void viewWillAppear(bool) override { note("willAppear"); }
    void viewDidAppear(bool) override { note("didAppear"); }
    void viewWillDisappear(bool) override { note("willDisappear"); }
    void viewDidDisappear(bool) override { note("didDisappear"); }
    void willMoveToParentViewController(UIViewController* parent) override {
        note(parent != nullptr ? "willMove" : "willLeave");
    }
    void didMoveToParentViewController(UIViewController* parent) override {
        note(parent != nullptr ? "didMove" : "didLeave");
    }

private:
    void note(const char* what) { m_log += m_name + " " + what + "\n"; }

    std::string m_name;
    std::string& m_log;
};

struct SomeContext : NSExtensionContext {
    void openURLCompletionHandler(const NSURL&, std::function<void(bool)>) override {}
};

class UIViewControllerTest : public support::OnScreen {
protected:
    ~UIViewControllerTest() override { window.reset(); } // screens still write to the log as they leave it
    [[nodiscard]] std::shared_ptr<Screen> screen(const char* name) { return std::make_shared<Screen>(name, log); }
    /// What was told since the last call.
    [[nodiscard]] std::string told() { return std::exchange(log, {}); }

    std::string log;
};

TEST_F(UIViewControllerTest, TheViewIsLoadedAtItsFirstUseOnlyAndOutlivesItsController) {
    auto controller = screen("a");
    int loads = 0;
    controller->setStoryboardSource(nullptr, [&](UIViewController&) {
        ++loads;
        return std::make_shared<UIView>(CGRectMake(0, 0, 7, 7));
    });
    EXPECT_FALSE(controller->isViewLoaded());
    const auto view = controller->view();
    EXPECT_EQ(controller->view()->frame().size.width, 7);
    EXPECT_EQ(loads, 1);
    EXPECT_EQ(told(), "a didLoad\n");
    window->addSubview(view);
    controller.reset();
    EXPECT_EQ(view->nextResponder(), window.get());
    tap({5, 5});
}

TEST_F(UIViewControllerTest, AChildHasOneParentAtATime) {
    const auto first = screen("1");
    const auto second = screen("2");
    auto child = screen("c");
    first->addChildViewController(child);
    EXPECT_EQ(told(), "c willMove\n");
    second->addChildViewController(child);
    EXPECT_TRUE(first->childViewControllers().empty());
    EXPECT_EQ(child->parentViewController(), second.get());
    EXPECT_EQ(told(), "c didLeave\nc willMove\n");
    const std::weak_ptr<Screen> watch = std::exchange(child, nullptr);
    watch.lock()->removeFromParentViewController();
    EXPECT_EQ(told(), "c didLeave\n");
    EXPECT_TRUE(watch.expired());
}

TEST_F(UIViewControllerTest, AppearanceCallsComeOnceForEachChange) {
    const auto parent = screen("p");
    const auto child = screen("c");
    parent->view()->addSubview(child->view());
    EXPECT_EQ(told(), "p didLoad\nc didLoad\n");
    window->setRootViewController(parent);
    EXPECT_EQ(told(), "p willAppear\nc willAppear\np didAppear\nc didAppear\n");
    window->setFrame(CGRectMake(0, 0, 430, 932));
    EXPECT_EQ(parent->view()->frame(), window->bounds()) << "the root fills the window";
    EXPECT_EQ(parent->view()->layoutMargins(), (UIEdgeInsets{0, 16, 0, 16}));
    window->addSubview(parent->view());
    EXPECT_EQ(told(), "");
    child->view()->removeFromSuperview();
    EXPECT_EQ(told(), "c willDisappear\nc didDisappear\n");
    window.reset();
    EXPECT_EQ(told(), "p willDisappear\np didDisappear\n");
}

TEST_F(UIViewControllerTest, TheContextIsTheNearestAncestors) {
    const auto top = screen("t");
    const auto middle = screen("m");
    const auto bottom = screen("b");
    top->addChildViewController(middle);
    middle->addChildViewController(bottom);
    EXPECT_EQ(bottom->extensionContext(), nullptr);
    top->setExtensionContext(std::make_shared<SomeContext>());
    EXPECT_EQ(bottom->extensionContext(), top->extensionContext());
    middle->setExtensionContext(std::make_shared<SomeContext>());
    EXPECT_EQ(bottom->extensionContext(), middle->extensionContext());
}

TEST_F(UIViewControllerTest, ANavigationControllerShowsTheTopOfItsStack) {
    const auto navigation = std::make_shared<UINavigationController>();
    const auto first = screen("1");
    const auto second = screen("2");
    navigation->pushViewControllerAnimated(first, false);
    window->setRootViewController(navigation);
    EXPECT_EQ(first->navigationController(), navigation);
    static_cast<void>(told());
    navigation->pushViewControllerAnimated(second, true);
    EXPECT_EQ(told(), "2 willMove\n1 willDisappear\n1 didDisappear\n2 didLoad\n2 willAppear\n2 didAppear\n2 didMove\n");
    EXPECT_EQ(second->view()->frame(), window->bounds());
    EXPECT_EQ(navigation->popViewControllerAnimated(true), second);
    EXPECT_EQ(told(), "2 willLeave\n2 didLeave\n2 willDisappear\n2 didDisappear\n1 willAppear\n1 didAppear\n");
    EXPECT_NE(first->view()->window(), nullptr);
    EXPECT_EQ(navigation->popViewControllerAnimated(true), nullptr);
}

using UIViewControllerDeathTest = UIViewControllerTest;

TEST_F(UIViewControllerDeathTest, AControllerIsNeverItsOwnChild) {
    const auto parent = screen("p");
    parent->addChildViewController(screen("c"));
    EXPECT_DEATH(parent->childViewControllers()[0]->addChildViewController(parent), "cannot be its own child");
}

} // namespace
