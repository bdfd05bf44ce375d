#include "platform/uikit/controls/UIControl.h"

#include "platform/runtime/ClassBuilder.h"
#include "platform/uikit/UIKitClasses.h"

#include "tests/uikit/ViewFixture.h"

#include <functional>

namespace {

struct Receiver : NSObject {
    void pressed(NSObject* sender) {
        senders.push_back(sender);
        whenPressed();
    }

    std::vector<NSObject*> senders;
    std::function<void()> whenPressed = [] {};
};

class UIControlTest : public support::OnScreen {
protected:
    UIControlTest() {
        registerUIKitClasses();
        ClassBuilder<Receiver>("Receiver", "NSObject").action("pressed:", &Receiver::pressed);
    }
    void listenTo(unsigned events) const { control->addTargetActionForControlEvents(receiver, "pressed:", events); }

    std::shared_ptr<UIControl> control = add(std::make_shared<UIControl>(CGRectMake(10, 10, 100, 40)));
    std::shared_ptr<Receiver> receiver = std::make_shared<Receiver>();
};

TEST_F(UIControlTest, OnlyATapInsideAnEnabledControlSendsTheAction) {
    listenTo(UIControlEventTouchUpInside);
    listenTo(UIControlEventTouchUpInside);
    const auto touch = touchDown({20, 20});
    EXPECT_TRUE(control->isHighlighted());
    move(touch, {200, 20});
    EXPECT_FALSE(control->isHighlighted());
    lift(touch, {200, 20});
    move(touchDown({20, 20}), {20, 20}, UITouchPhase::cancelled);
    EXPECT_FALSE(control->isHighlighted());
    EXPECT_TRUE(receiver->senders.empty());
    tap({20, 20});
    EXPECT_EQ(receiver->senders, std::vector<NSObject*>{control.get()}) << "the same pair is registered once";
    EXPECT_FALSE(control->isHighlighted());
    listenTo(UIControlEventTouchUpOutside | UIControlEventTouchDown);
    lift(touchDown({20, 20}), {200, 20});
    EXPECT_EQ(receiver->senders.size(), 3U) << "its events add up";
    control->setEnabled(false);
    tap({20, 20});
    EXPECT_EQ(receiver->senders.size(), 3U);
    EXPECT_EQ(window->hitTestWithEvent({20, 20}, nullptr), control) << "a disabled control swallows touches";
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
