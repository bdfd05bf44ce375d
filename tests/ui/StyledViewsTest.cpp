#include "platform/runtime/ClassRegistry.h"
#include "platform/uikit/UIEvent.h"
#include "platform/uikit/UIKitClasses.h"
#include "platform/uikit/UIWindow.h"
#include "ui/AppView.h"
#include "ui/GenericButton.h"
#include "ui/GenericLabel.h"
#include "ui/UIButton+Handler.h"
#include "ui/UIView+Layer.h"
#include "ui/UiClasses.h"

#include <gtest/gtest.h>

namespace {

class StyledViews : public testing::Test {
protected:
    StyledViews() {
        registerUIKitClasses();
        registerUiClasses();
    }
    /// What an interface file does with a key.
    static Acceptance setByKey(NSObject& object, const char* key, const Value& value) {
        const ObjectClass::PropertySetter* setter = ClassRegistry::shared().classOf(object)->property(key);
        EXPECT_NE(setter, nullptr) << key;
        return setter != nullptr ? (*setter)(object, value) : Acceptance::wrongType;
    }
    static Value color(const std::shared_ptr<UIColor>& color) { return std::shared_ptr<NSObject>(color); }
};

using AppViewTest = StyledViews;
using LayerProperties = StyledViews;
using GenericLabelTest = StyledViews;
using ButtonHandler = StyledViews;

void expectShadow(const CALayer& layer, float opacity, CGSize offset) {
    EXPECT_EQ(layer.shadowOpacity(), opacity);
    EXPECT_EQ(layer.shadowOffset(), offset);
    EXPECT_EQ(layer.shadowRadius(), 0);
}

} // namespace

TEST_F(AppViewTest, LeavesItsLayerAloneUntilTheFirstLayout) {
    const auto view = std::make_shared<AppView>(CGRectMake(0, 0, 100, 50));
    EXPECT_EQ(view->layer()->borderWidth(), 0);
    EXPECT_EQ(view->layer()->borderColor(), nullptr);
    EXPECT_EQ(view->layer()->shadowOpacity(), 0);
    view->layoutIfNeeded();
    EXPECT_EQ(view->layer()->borderWidth(), 1);
    EXPECT_TRUE(*view->layer()->borderColor() == *UIColor::whiteColor());
    EXPECT_TRUE(*view->layer()->shadowColor() == *UIColor::blackColor());
    expectShadow(*view->layer(), 0.3f, {0, 3});
    EXPECT_FALSE(view->layer()->masksToBounds());
}

TEST_F(AppViewTest, AppliesAPropertyTheMomentItIsWritten) {
    const auto view = std::make_shared<AppView>();
    EXPECT_EQ(setByKey(*view, "strokeColor", color(UIColor::blueColor())), Acceptance::accepted);
    EXPECT_TRUE(*view->layer()->borderColor() == *UIColor::blueColor());
    EXPECT_EQ(view->layer()->borderWidth(), 0) << "only the property written";
    EXPECT_EQ(setByKey(*view, "strokeWidth", 2.5), Acceptance::accepted);
    EXPECT_EQ(view->layer()->borderWidth(), 2.5);
    EXPECT_EQ(setByKey(*view, "enableShadow", true), Acceptance::accepted);
    expectShadow(*view->layer(), 0.3f, {0, 3});
    setCornerRadius(*view, 8);
    view->setEnableShadow(false);
    expectShadow(*view->layer(), 0, {0, 0});
    EXPECT_TRUE(*view->layer()->shadowColor() == *UIColor::blackColor()) << "the colour stays";
    EXPECT_TRUE(view->layer()->masksToBounds()) << "clipping stays";
    EXPECT_EQ(setByKey(*view, "enableShadow", 1.0), Acceptance::wrongType);
}

TEST_F(AppViewTest, AssertsItsLookAtEveryLayout) {
    const auto view = std::make_shared<AppView>();
    view->setStrokeWidth(3);
    view->layoutIfNeeded();
    setBorderWidth(*view, 9);
    setBorderColorApp(*view, nullptr);
    view->layer()->setShadowOpacity(1);
    setCornerRadius(*view, 12);
    EXPECT_TRUE(view->layer()->masksToBounds());
    view->setNeedsLayout();
    view->layoutIfNeeded();
    EXPECT_EQ(borderWidth(*view), 3);
    EXPECT_TRUE(*borderColorApp(*view) == *UIColor::whiteColor());
    EXPECT_EQ(view->layer()->shadowOpacity(), 0.3f);
    EXPECT_FALSE(view->layer()->masksToBounds()) << "a shadow needs room outside";

    view->setEnableShadow(false);
    setCornerRadius(*view, 12);
    view->setNeedsLayout();
    view->layoutIfNeeded();
    EXPECT_TRUE(view->layer()->masksToBounds());
    EXPECT_EQ(cornerRadius(*view), 12);
}

TEST_F(LayerProperties, AreSetByKeyOnAnyView) {
    const std::shared_ptr<UIView> views[] = {std::make_shared<UIView>(), std::make_shared<GenericButton>(),
                                             std::make_shared<UILabel>(), std::make_shared<AppView>()};
    for (const std::shared_ptr<UIView>& view : views) {
        EXPECT_EQ(setByKey(*view, "cornerRadius", 7.5), Acceptance::accepted);
        EXPECT_EQ(view->layer()->cornerRadius(), 7.5);
        EXPECT_TRUE(view->layer()->masksToBounds());
        setByKey(*view, "borderWidth", 2.0);
        EXPECT_EQ(view->layer()->borderWidth(), 2);
        setByKey(*view, "borderColorApp", color(UIColor::blueColor()));
        EXPECT_TRUE(*borderColorApp(*view) == *UIColor::blueColor());
        EXPECT_EQ(setByKey(*view, "borderColorApp", color(nullptr)), Acceptance::accepted);
        EXPECT_EQ(borderColorApp(*view), nullptr);
        EXPECT_EQ(view->layer()->borderColor(), nullptr);
    }
}

TEST_F(GenericLabelTest, SpacesTheTextOfTheMomentInWhichSpaceIsWritten) {
    const auto label = std::make_shared<GenericLabel>();
    label->setTextAlignment(NSTextAlignment::center);
    label->setText("😀 two\nlines");
    EXPECT_EQ(setByKey(*label, "space", 6.0), Acceptance::accepted);
    ASSERT_TRUE(label->attributedText());
    const NSParagraphStyle expected{.lineSpacing = 6, .alignment = NSTextAlignment::center};
    EXPECT_EQ(label->attributedText()->paragraphStyleAt(0), expected);
    EXPECT_EQ(label->attributedText()->paragraphStyleAt(label->attributedText()->length() - 1), expected);
    EXPECT_EQ(label->text(), "😀 two\nlines");

    label->setText("later");
    EXPECT_FALSE(label->attributedText() && label->attributedText()->paragraphStyleAt(0)) << "no spacing any more";
    EXPECT_EQ(label->space(), 6);
    label->setSpace(label->space());
    EXPECT_EQ(label->attributedText()->paragraphStyleAt(0), expected);
}

TEST_F(GenericLabelTest, GetsAnEmptyTextWhenItHadNone) {
    const auto label = std::make_shared<GenericLabel>();
    EXPECT_FALSE(label->text());
    label->setSpace(4);
    ASSERT_TRUE(label->attributedText());
    EXPECT_EQ(label->attributedText()->string(), "");
}

namespace {

/// A button in a window, to be touched.
struct Touchable {
    Touchable() {
        button->setFrame(CGRectMake(0, 0, 100, 50));
        window->addSubview(button);
    }
    void tap(CGPoint end = {50, 25}) const {
        const auto touch = std::make_shared<UITouch>(CGPoint{50, 25});
        window->sendEvent(*std::make_shared<UIEvent>(TouchSet{touch}));
        touch->moveTo(end, UITouchPhase::ended);
        window->sendEvent(*std::make_shared<UIEvent>(TouchSet{touch}));
    }
    std::shared_ptr<UIWindow> window = std::make_shared<UIWindow>(CGRectMake(0, 0, 300, 600));
    std::shared_ptr<UIButton> button = std::make_shared<GenericButton>();
};

} // namespace

TEST_F(ButtonHandler, RunsTheLastHandlerOnceATap) {
    const Touchable touchable;
    std::string calls;
    setTouchUpInsideHandler(*touchable.button, [&](UIButton&) { calls += "first "; });
    setTouchUpInsideHandler(*touchable.button, [&](UIButton& sender) {
        EXPECT_EQ(&sender, touchable.button.get());
        calls += "second ";
    });
    touchable.tap();
    touchable.tap();
    EXPECT_EQ(calls, "second second ");
    touchable.tap({50, 500}); // lifted far outside
    EXPECT_EQ(calls, "second second ");
}

TEST_F(ButtonHandler, MayBeMissing) {
    const Touchable touchable;
    touchable.tap();
    handleButtonTouchEventWithSender(*touchable.button, touchable.button.get());
    setTouchUpInsideHandler(*touchable.button, nullptr);
    touchable.tap();
}

TEST_F(ButtonHandler, MayReplaceItselfAndGoesWithItsButton) {
    const auto captured = std::make_shared<int>(0);
    {
        const Touchable touchable;
        setTouchUpInsideHandler(*touchable.button, [captured](UIButton& button) {
            *captured += 1;
            setTouchUpInsideHandler(button, [captured](UIButton&) { *captured += 10; });
            *captured += 100;
        });
        touchable.tap();
        EXPECT_EQ(*captured, 101);
        touchable.tap();
        EXPECT_EQ(*captured, 111);
        EXPECT_GT(captured.use_count(), 1);
    }
    EXPECT_EQ(captured.use_count(), 1);
}
