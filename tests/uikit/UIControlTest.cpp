#include "platform/uikit/UIControl.h"

#include "platform/runtime/ClassBuilder.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIKitClasses.h"
#include "platform/uikit/UILabel.h"

#include "tests/uikit/Attributes.h"
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
    const auto touch = touchDown({20, 20});
    EXPECT_TRUE(control->isHighlighted());
    EXPECT_EQ(receiver->presses, 0);
    lift(touch, {30, 30});
    EXPECT_FALSE(control->isHighlighted());
    EXPECT_EQ(receiver->presses, 1);
    EXPECT_EQ(receiver->sender, control.get());
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

TEST_F(UIControlTest, TheSamePairIsRegisteredOnceAndItsEventsAddUp) {
    listenTo(UIControlEventTouchUpInside);
    listenTo(UIControlEventTouchUpInside);
    listenTo(UIControlEventTouchDown);
    tap({20, 20});
    EXPECT_EQ(receiver->presses, 2);
}

TEST_F(UIControlTest, ADisabledControlSwallowsTouches) {
    listenTo(UIControlEventTouchUpInside);
    control->setEnabled(false);
    tap({20, 20});
    EXPECT_EQ(receiver->presses, 0);
    EXPECT_EQ(window->hitTestWithEvent({20, 20}, nullptr), control);
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

TEST_F(UIControlTest, AButtonCentresItsTitleInsideItsInsets) {
    support::Attributes file;
    file.rects["frame"] = CGRectMake(0, 0, 200, 60);
    file.strings["buttonType"] = "system";
    file.edges["contentEdgeInsets"] = {10, 20, 10, 40};
    file.children["normal"] = std::make_shared<support::Attributes>();
    file.children["normal"]->strings["title"] = "Let's play";
    const auto button = add(std::make_shared<UIButton>(static_cast<const NSCoder&>(file)));
    window->layoutIfNeeded();
    const CGSize text = button->titleLabel()->intrinsicContentSize();
    EXPECT_EQ(button->intrinsicContentSize(), (CGSize{text.width + 60, text.height + 20}));
    EXPECT_EQ(button->titleLabel()->frame().size, text);
    EXPECT_NEAR(button->titleLabel()->frame().midX(), 90, 0.5);
    EXPECT_NEAR(button->titleLabel()->frame().midY(), 30, 0.5);
    EXPECT_EQ(*button->titleLabel()->textColor(), *button->tintColor());
    EXPECT_EQ(window->hitTestWithEvent({90, 30}, nullptr), button);
    EXPECT_FALSE(window->needsLayout());
}

using UIControlDeathTest = UIControlTest;

TEST_F(UIControlDeathTest, AnUnknownSelectorStopsTheProgram) {
    control->addTargetActionForControlEvents(receiver, "pushed:", UIControlEventTouchUpInside);
    EXPECT_DEATH(tap({20, 20}), "Receiver pushed:\\]: unrecognized selector");
}

} // namespace
