#include "platform/uikit/controllers/UIViewController.h"

#include "tests/uikit/ViewFixture.h"

#include <functional>

namespace {

/// Writes down the touches it gets and does what a test wants to happen then.
class Listener : public UIView {
public:
    using UIView::UIView;

    void touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) override { note("began", touches, event); }
    void touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) override { note("moved", touches, event); }
    void touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) override { note("ended", touches, event); }
    void touchesCancelledWithEvent(const TouchSet& touches, UIEvent* event) override {
        note("cancelled", touches, event);
    }

    std::vector<std::string> log;
    std::function<void()> whenTouched = [] {};
    CGPoint last;

private:
    void note(const char* phase, const TouchSet& touches, UIEvent* event) {
        EXPECT_NE(event, nullptr);
        log.emplace_back(phase);
        last = (*touches.begin())->locationInView(this);
        whenTouched();
    }
};

using Log = std::vector<std::string>;

class UIWindowTouchesTest : public support::OnScreen {
protected:
    std::shared_ptr<Listener> addListener(const CGRect& frame, const std::shared_ptr<UIView>& to = nullptr) const {
        return add(std::make_shared<Listener>(frame), to);
    }
};

TEST_F(UIWindowTouchesTest, ATouchStaysWithTheViewItBeganOn) {
    const auto first = addListener(CGRectMake(0, 0, 100, 100));
    const auto second = addListener(CGRectMake(100, 0, 100, 100));
    const auto touch = touchDown({50, 50});
    EXPECT_EQ(touch->view(), first);
    move(touch, {150, 60});
    EXPECT_EQ(first->last, (CGPoint{150, 60}));
    lift(touch, {150, 60});
    EXPECT_EQ(first->log, (Log{"began", "moved", "ended"}));
    EXPECT_TRUE(second->log.empty());
    move(touch, {10, 10});
    EXPECT_EQ(first->log.size(), 3U);
}

TEST_F(UIWindowTouchesTest, AViewTakesOneFingerAtATime) {
    const auto view = addListener(CGRectMake(0, 0, 100, 100));
    const auto other = addListener(CGRectMake(100, 0, 100, 100));
    const auto first = touchDown({10, 10});
    const auto second = touchDown({20, 20});
    const auto third = touchDown({120, 20});
    move(second, {30, 30});
    lift(second, {30, 30});
    EXPECT_EQ(view->log, (Log{"began"}));
    EXPECT_EQ(other->log, (Log{"began"}));
    move(first, {10, 10}, UITouchPhase::cancelled);
    EXPECT_EQ(view->log, (Log{"began", "cancelled"}));
    lift(third, {120, 20});
    EXPECT_EQ(other->log, (Log{"began", "ended"}));
}

TEST_F(UIWindowTouchesTest, ATouchKeepsItsViewUntilItEnds) {
    auto view = addListener(CGRectMake(0, 0, 100, 100));
    const std::weak_ptr<Listener> watch = view;
    const auto touch = touchDown({10, 10});
    view->removeFromSuperview();
    view.reset();
    ASSERT_FALSE(watch.expired());
    move(touch, {11, 11}, UITouchPhase::cancelled);
    EXPECT_TRUE(watch.expired());
    EXPECT_EQ(touch->view(), nullptr);
}

TEST_F(UIWindowTouchesTest, AScreenMayBeDroppedInTheMiddleOfATouch) {
    auto controller = std::make_shared<UIViewController>();
    window->setRootViewController(controller);
    const auto outer = addListener(CGRectMake(0, 0, 100, 100), controller->view());
    const auto inner = add(CGRectMake(0, 0, 50, 50), outer);
    outer->whenTouched = [&] {
        window->setRootViewController(nullptr);
        controller.reset();
    };
    const auto touch = touchDown({10, 10}); // on the inner view, which passes it on
    move(touch, {12, 12});
    lift(touch, {12, 12});
    EXPECT_EQ(outer->last, (CGPoint{12, 12}));
    EXPECT_EQ(outer->log, (Log{"began", "moved", "ended"}));
    EXPECT_TRUE(window->subviews().empty());
    EXPECT_EQ(inner->superview(), outer.get());
}

TEST_F(UIWindowTouchesTest, TheWindowMayBeDroppedByAHandler) {
    const auto view = addListener(CGRectMake(0, 0, 100, 100));
    const std::weak_ptr<UIWindow> watch = window;
    UIWindow* plain = window.get();
    view->whenTouched = [&] { window.reset(); };
    UIEvent event({std::make_shared<UITouch>(CGPoint{10, 10})});
    plain->sendEvent(event);
    EXPECT_TRUE(watch.expired());
    EXPECT_EQ(view->superview(), nullptr);
}

} // namespace
