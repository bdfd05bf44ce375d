#include "host/MessagesViewController.h"

#include "platform/dispatch/MainRunLoop.h"
#include "platform/foundation/DebugConsole.h"
#include "platform/uikit/controllers/UIStoryboard.h"
#include "platform/uikit/window/UIWindow.h"
#include "tests/support/Output.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

/// A screen in place of the category screen, which writes down what becomes of it under its name.
class Screen : public UIViewController {
public:
    Screen(std::string name, std::string& calls) : m_name(std::move(name)), m_calls(calls) {}
    void viewDidLoad() override {
        print("screen");
        tell(MainRunLoop::shared().nextDueTime() ? "load-behind-a-request" : "load");
    }
    void willMoveToParentViewController(UIViewController* parent) override {
        tell(parent == nullptr ? "leave" : "enter");
    }
    void didMoveToParentViewController(UIViewController* parent) override {
        if (parent == nullptr) {
            tell(view()->superview() == nullptr ? "left" : "left-in-view");
        } else {
            const bool fills =
                view()->superview() == parent->view().get() && view()->frame() == parent->view()->bounds();
            tell(fills ? "entered" : "entered-elsewhere");
        }
    }

private:
    void tell(const char* what) { m_calls += m_name + "." + what + " "; }

    std::string m_name;
    std::string& m_calls;
};

class Storyboard : public UIStoryboard {
public:
    std::shared_ptr<UIViewController> instantiateInitialViewController() override { return nullptr; }
    std::shared_ptr<UIViewController> instantiateViewControllerWithIdentifier(const std::string& identifier) override {
        EXPECT_EQ(identifier, "CategoriesVC");
        return std::make_shared<Screen>(std::string(1, ++m_last), calls);
    }
    std::string calls;

private:
    char m_last = 'A' - 1; // name of the screen made last
};

class Host : public ExtensionHost {
public:
    void presentationStyleRequested(MSMessagesAppViewController&, MSMessagesAppPresentationStyle style) override {
        EXPECT_EQ(style, MSMessagesAppPresentationStyle::expanded);
        ++requests;
    }
    int requests = 0;
};

/// The controller in its window, as the host has it.
class MessagesViewControllerTest : public testing::Test {
protected:
    MessagesViewControllerTest() {
        loop.useVirtualClock();
        controller->setStoryboardSource(storyboard, nullptr);
        controller->setHost(host);
        window->setRootViewController(controller);
    }
    ~MessagesViewControllerTest() override { loop.useVirtualClock(); }

    [[nodiscard]] std::shared_ptr<MSConversation> conversation(const std::shared_ptr<MSMessage>& selected) const {
        return std::make_shared<MSConversation>(remotes, selected);
    }
    [[nodiscard]] static std::shared_ptr<MSMessage> bubble(const NSUUID& from) {
        return std::make_shared<MSMessage>(from, NSURL::URLWithString("https://a.example"));
    }
    void activate(const std::shared_ptr<MSMessage>& selected = nullptr) {
        controller->willBecomeActiveWithConversation(conversation(selected));
    }
    [[nodiscard]] std::shared_ptr<UIViewController> screen() const {
        EXPECT_EQ(controller->childViewControllers().size(), 1U);
        return controller->childViewControllers().at(0);
    }

    MainRunLoop& loop = MainRunLoop::shared();
    const NSUUID me = NSUUID::UUID();
    const NSUUID first = NSUUID::UUID();
    const NSUUID second = NSUUID::UUID();
    std::vector<NSUUID> remotes{first, second};
    const std::shared_ptr<Storyboard> storyboard = std::make_shared<Storyboard>();
    const std::shared_ptr<Host> host = std::make_shared<Host>();
    const std::shared_ptr<UIWindow> window = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 500));
    std::shared_ptr<MessagesViewController> controller = std::make_shared<MessagesViewController>();
};

const std::string received = "----------------\nRecieved\n----------------\n";

} // namespace

TEST_F(MessagesViewControllerTest, StopsWithoutTheStoryboardThatHoldsItsScreen) {
    controller->setStoryboardSource(nullptr, nullptr);
    EXPECT_DEATH(activate(), "the controller was not made from a storyboard");
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\n");
}

TEST_F(MessagesViewControllerTest, ShowsOneScreenThatFillsItsView) {
    UIView& view = *controller->view();
    view.addSubview(std::make_shared<UIView>());
    view.setFrame(CGRectMake(0, 60, 390, 440));
    activate();
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\nscreen\n");
    EXPECT_EQ(storyboard->calls, "A.enter A.load A.entered ");
    EXPECT_EQ(view.subviews().back(), screen()->view());
    EXPECT_FALSE(screen()->view()->translatesAutoresizingMaskIntoConstraints());
    window->setFrame(CGRectMake(0, 0, 430, 300));
    window->layoutIfNeeded();
    EXPECT_EQ(view.bounds().size.width, 430);
    EXPECT_EQ(screen()->view()->frame(), view.bounds());
}

TEST_F(MessagesViewControllerTest, HoldsItsScreenAtItsOwnFourEdges) {
    activate();
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\nscreen\n");
    std::vector<LayoutAttribute> edges;
    for (const std::shared_ptr<NSLayoutConstraint>& constraint : controller->view()->constraints()) {
        EXPECT_EQ(constraint->first().view.lock(), screen()->view());
        EXPECT_EQ(constraint->second().view.lock(), controller->view());
        EXPECT_EQ(constraint->first().attribute, constraint->second().attribute);
        EXPECT_EQ(constraint->constant(), 0);
        edges.push_back(constraint->first().attribute);
    }
    using enum LayoutAttribute;
    EXPECT_EQ(edges, (std::vector{left, right, top, bottom}));
}

TEST_F(MessagesViewControllerTest, TellsABubbleOfTheFirstRemoteParticipantBeforeItsScreenComes) {
    activate(bubble(first));
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\n" + received + "screen\n");
    activate(bubble(second));
    remotes.clear();
    activate(bubble(first));
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\nscreen\nwillBecomeActive\nscreen\n");
    loop.advance(10s);
    EXPECT_EQ(host->requests, 0);
}

TEST_F(MessagesViewControllerTest, StartsAfreshWithEveryMessage) {
    activate();
    loop.advance(10s);
    std::weak_ptr<UIViewController> before = screen();
    const auto another = std::make_shared<Screen>("another", storyboard->calls);
    controller->addChildViewController(another);
    controller->view()->addSubview(another->view());
    storyboard->calls.clear();
    controller->didReceiveMessageConversation(bubble(first), conversation(nullptr));
    EXPECT_EQ(storyboard->calls, "A.leave A.left another.leave another.left B.enter B.load B.entered ");
    EXPECT_TRUE(before.expired());
    EXPECT_EQ(controller->view()->subviews().size(), 1U);

    before = screen();
    controller->didReceiveMessageConversation(bubble(second), conversation(bubble(first)));
    EXPECT_TRUE(before.expired());
    EXPECT_EQ(support::takeStandardOutput(),
              "willBecomeActive\nscreen\nscreen\ndidReceive\nscreen\ndidReceive\n" + received + "screen\n");
    loop.advance(10s);
    EXPECT_EQ(host->requests, 2) << "none for the third start, which had a bubble";
}

TEST_F(MessagesViewControllerTest, IsKeptByItsOutstandingRequest) {
    activate();
    window->setRootViewController(nullptr);
    const std::weak_ptr<MessagesViewController> weak = controller;
    controller = nullptr;
    EXPECT_FALSE(weak.expired());
    loop.advance(499ms);
    EXPECT_EQ(host->requests, 0);
    loop.advance(1ms);
    EXPECT_EQ(host->requests, 1);
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\nscreen\n");
}

TEST_F(MessagesViewControllerTest, FiltersWhatIsTypedIntoAFieldAndClosesTheKeyboard) {
    const auto field = std::make_shared<UITextField>();
    field->setDelegate(controller);
    controller->view()->addSubview(field);
    ASSERT_TRUE(field->becomeFirstResponder());
    EXPECT_TRUE(field->insertText("Questionsx"));
    EXPECT_FALSE(field->insertText("y"));
    EXPECT_TRUE(field->replaceCharactersInRange(NSMakeRange(9, 1), ""));
    EXPECT_EQ(field->text(), "Questions");
    EXPECT_TRUE(controller->textFieldShouldReturn(*field));
    EXPECT_FALSE(field->isFirstResponder());
}
