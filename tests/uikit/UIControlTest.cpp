#include "platform/uikit/controls/UIControl.h"

#include "platform/runtime/ClassBuilder.h"
#include "platform/uikit/UIKitClasses.h"

#include "tests/uikit/ViewFixture.h"

#include <functional>

namespace {

class Receiver : public NSObject {
public:
    void pressed(NSObject* from) {
        ++presses;
        sender = from;
        whenPressed();
    }

    int presses = 0;
    NSObject* sender = nullptr;
    std::function<void()> whenPressed = [] {};
};

class UIControlTest : public support::OnScreen {
protected:
    UIControlTest() {
        registerUIKitClasses();
        ClassBuilder<Receiver>("Receiver", "NSObject").action("pressed:", &Receiver::pressed);
        control = add(std::make_shared<UIControl>(CGRectMake(10, 10, 100, 40)));
        receiver = std::make_shared<Receiver>();
    }
    void listenTo(unsigned events) const { control->addTargetActionForControlEvents(receiver, "pressed:", events); }

    std::shared_ptr<UIControl> control;
    std::shared_ptr<Receiver> receiver;
};

TEST_F(UIControlTest, ATapInsideSendsTheAction) {
    listenTo(UIControlEventTouchUpInside);
    listenTo(UIControlEventTouchUpInside);
    const auto touch = touchDown({20, 20});
    EXPECT_TRUE(control->isHighlighted());
    EXPECT_EQ(receiver->presses, 0);
    lift(touch, {30, 30});
    EXPECT_FALSE(control->isHighlighted());
    EXPECT_EQ(receiver->presses, 1) << "the same pair is registered once";
    EXPECT_EQ(receiver->sender, control.get());
    listenTo(UIControlEventTouchDown);
    tap({20, 20});
    EXPECT_EQ(receiver->presses, 3) << "its events add up";
    control->setEnabled(false);
    tap({20, 20});
    EXPECT_EQ(receiver->presses, 3);
    EXPECT_EQ(window->hitTestWithEvent({20, 20}, nullptr), control) << "a disabled control swallows touches";
}

TEST_F(UIControlTest, ATouchThatLeavesTheControlIsNoTap) {
    listenTo(UIControlEventTouchUpInside);
    const auto touch = touchDown({20, 20});
    move(touch, {200, 20});
    EXPECT_FALSE(control->isHighlighted());
    lift(touch, {200, 20});
    const auto cancelled = touchDown({20, 20});
    move(cancelled, {20, 20}, UITouchPhase::cancelled);
    EXPECT_EQ(receiver->presses, 0);
    EXPECT_FALSE(control->isHighlighted());
    listenTo(UIControlEventTouchUpOutside | UIControlEventTouchCancel);
    lift(touchDown({20, 20}), {200, 20});
    EXPECT_EQ(receiver->presses, 1);
}

TEST_F(UIControlTest, TargetsAreHeldWeaklyButLiveThroughTheirAction) {
    listenTo(UIControlEventTouchUpInside);
    const std::weak_ptr<Receiver> watch = receiver;
    bool wasAliveInside = false;
    receiver->whenPressed = [&] {
        control->removeFromSuperview();
        control.reset();
        receiver.reset();
        wasAliveInside = !watch.expired();
    };
    tap({20, 20});
    EXPECT_TRUE(wasAliveInside);
    EXPECT_TRUE(watch.expired());
}

using UIControlDeathTest = UIControlTest;

TEST_F(UIControlDeathTest, AnUnknownSelectorStopsTheProgram) {
    control->addTargetActionForControlEvents(receiver, "pushed:", UIControlEventTouchUpInside);
    EXPECT_DEATH(tap({20, 20}), "Receiver pushed:\\]: unrecognized selector");
}

} // namespace
