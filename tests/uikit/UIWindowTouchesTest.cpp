#include "platform/uikit/controllers/UIViewController.h"

#include "tests/uikit/ViewFixture.h"

#include <functional>

namespace {

/// Writes down the touches it gets and does what a test wants to happen then.
struct Listener : UIView {
    using UIView::UIView;

    void touchesBeganWithEvent(const TouchSet& touches, UIEvent* event) override { note("began ", touches, event); }
    void touchesMovedWithEvent(const TouchSet& touches, UIEvent* event) override { note("moved ", touches, event); }
    void touchesEndedWithEvent(const TouchSet& touches, UIEvent* event) override { note("ended ", touches, event); }
    void touchesCancelledWithEvent(const TouchSet& touches, UIEvent* event) override {
        note("cancelled ", touches, event);
    }

    std::string log;
    std::function<void()> whenTouched = [] {};
    CGPoint last;

private:
    void note(const char* phase, const TouchSet& touches, UIEvent* event) {
        EXPECT_NE(event, nullptr);
        log += phase;
        last = (*touches.begin())->locationInView(this);
        whenTouched();
    }
};

class UIWindowTouchesTest : public support::OnScreen {
protected:
    std::shared_ptr<Listener> first = add(std::make_shared<Listener>(CGRectMake(0, 0, 100, 100)));
    std::shared_ptr<Listener> second = add(std::make_shared<Listener>(CGRectMake(100, 0, 100, 100)));
};

TEST_F(UIWindowTouchesTest, ATouchStaysWithTheViewItBeganOnWhichTakesOneFingerAtATime) {
    const auto finger = touchDown({10, 10});
    const auto further = touchDown({20, 20});
    const auto elsewhere = touchDown({120, 20});
    EXPECT_EQ(finger->view(), first);
    lift(further, {30, 30});
    move(finger, {150, 60});
    EXPECT_EQ(first->last, (CGPoint{150, 60}));
    move(finger, {10, 10}, UITouchPhase::cancelled);
    move(finger, {10, 10});
    EXPECT_EQ(first->log, "began moved cancelled ");
    lift(elsewhere, {120, 20});
    EXPECT_EQ(second->log, "began ended ");
    EXPECT_EQ(second->last, (CGPoint{20, 20}));
}

TEST_F(UIWindowTouchesTest, ATouchKeepsItsViewUntilItEnds) {
    const std::weak_ptr<Listener> watch = first;
    const auto touch = touchDown({10, 10});
    first->removeFromSuperview();
    first.reset();
    ASSERT_FALSE(watch.expired());
    move(touch, {11, 11}, UITouchPhase::cancelled);
    EXPECT_TRUE(watch.expired());
    EXPECT_EQ(touch->view(), nullptr);
}

TEST_F(UIWindowTouchesTest, AScreenMayBeDroppedInTheMiddleOfATouch) {
    auto controller = std::make_shared<UIViewController>();
    window->setRootViewController(controller);
    controller->view()->addSubview(first);
    const auto inner = add(CGRectMake(0, 0, 50, 50), first);
    first->whenTouched = [&] {
        window->setRootViewController(nullptr);
        controller.reset();
    };
    const auto touch = touchDown({10, 10}); // on the inner view, which passes it on
    move(touch, {12, 12});
    lift(touch, {12, 12});
    EXPECT_EQ(first->last, (CGPoint{12, 12}));
    EXPECT_EQ(first->log, "began moved ended ");
    EXPECT_EQ(first->window(), nullptr);
    EXPECT_EQ(inner->superview(), first.get());
}

TEST_F(UIWindowTouchesTest, TheWindowMayBeDroppedByAHandler) {
    const std::weak_ptr<UIWindow> watch = window;
    UIWindow* plain = window.get();
    first->whenTouched = [&] { window.reset(); };
    UIEvent event({std::make_shared<UITouch>(CGPoint{10, 10})});
    plain->sendEvent(event);
    EXPECT_TRUE(watch.expired());
    EXPECT_EQ(first->superview(), nullptr);
}

} // namespace
