#include "host/MessagesViewController.h"

#include "platform/dispatch/MainRunLoop.h"
#include "platform/uikit/controllers/UIStoryboard.h"
#include "platform/uikit/window/UIWindow.h"
#include "tests/support/Output.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

/// A screen in place of the category screen, which writes down what becomes of it.
class Screen : public UIViewController {
public:
    explicit Screen(std::string& calls) : m_calls(calls) {}
    void viewDidLoad() override { m_calls += "load "; }
    void willMoveToParentViewController(UIViewController* parent) override {
        m_calls += parent == nullptr ? "leave " : "enter ";
    }
    void didMoveToParentViewController(UIViewController* parent) override {
        const bool isShown = view()->superview() != nullptr;
        m_calls += parent == nullptr ? (isShown ? "left-in-view " : "left ") : (isShown ? "entered " : "no view ");
    }

private:
    std::string& m_calls;
};

class Storyboard : public UIStoryboard {
public:
    std::shared_ptr<UIViewController> instantiateInitialViewController() override { return nullptr; }
    std::shared_ptr<UIViewController> instantiateViewControllerWithIdentifier(const std::string& identifier) override {
        EXPECT_EQ(identifier, "CategoriesVC");
        return std::make_shared<Screen>(calls);
    }
    std::string calls;
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
    activate();
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\n");
    EXPECT_EQ(storyboard->calls, "enter load entered ");
    EXPECT_EQ(controller->view()->subviews().back(), screen()->view());
    window->setFrame(CGRectMake(0, 0, 430, 300));
    window->layoutIfNeeded();
    EXPECT_EQ(screen()->view()->frame(), CGRectMake(0, 0, 430, 300));
}

TEST_F(MessagesViewControllerTest, TellsABubbleOfTheFirstRemoteParticipantOnly) {
    const struct {
        const char* name;
        NSUUID sender;
        std::vector<NSUUID> remotes;
        bool isReceived;
    } cases[] = {
        {"the first", first, {first, second}, true}, {"the second", second, {first, second}, false},
        {"the player", me, {first, second}, false},  {"nobody else there", first, {}, false},
        {"the only one", second, {second}, true},
    };
    for (const auto& sample : cases) {
        remotes = sample.remotes;
        activate(bubble(sample.sender));
        EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\n" + (sample.isReceived ? received : ""))
            << sample.name;
    }
    loop.advance(10s);
    EXPECT_EQ(host->requests, 0);
}

TEST_F(MessagesViewControllerTest, StartsAfreshWithEveryMessage) {
    activate();
    std::weak_ptr<UIViewController> before = screen();
    storyboard->calls.clear();
    controller->didReceiveMessageConversation(bubble(first), conversation(nullptr));
    EXPECT_EQ(storyboard->calls, "leave left enter load entered ");
    EXPECT_TRUE(before.expired());
    EXPECT_EQ(controller->view()->subviews().size(), 1U);

    before = screen();
    controller->didReceiveMessageConversation(bubble(second), conversation(bubble(first)));
    EXPECT_TRUE(before.expired());
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\ndidReceive\ndidReceive\n" + received);
    loop.advance(10s);
    EXPECT_EQ(host->requests, 2) << "none for the third start, which had a bubble";
}

TEST_F(MessagesViewControllerTest, IsKeptByItsOutstandingRequest) {
    activate();
    window->setRootViewController(nullptr);
    const std::weak_ptr<MessagesViewController> weak = controller;
    controller = nullptr;
    EXPECT_FALSE(weak.expired());
    loop.advance(1s);
    EXPECT_EQ(host->requests, 1);
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(support::takeStandardOutput(), "willBecomeActive\n");
}

TEST_F(MessagesViewControllerTest, FiltersWhatIsTypedIntoAFieldAndClosesTheKeyboard) {
    const auto field = std::make_shared<UITextField>();
    field->setDelegate(controller);
    controller->view()->addSubview(field);
    ASSERT_TRUE(field->becomeFirstResponder());
    EXPECT_TRUE(field->insertText("Questions"));
    EXPECT_FALSE(field->insertText("7"));
    EXPECT_TRUE(field->insertText("x"));
    EXPECT_FALSE(field->insertText("y"));
    EXPECT_EQ(field->text(), "Questionsx");
    EXPECT_TRUE(field->replaceCharactersInRange(NSMakeRange(9, 1), ""));
    EXPECT_EQ(field->text(), "Questions");
    field->pressReturn();
    EXPECT_FALSE(field->isFirstResponder());
}
