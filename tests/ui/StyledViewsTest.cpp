#include "platform/runtime/ClassRegistry.h"
#include "platform/uikit/UIKitClasses.h"
#include "platform/uikit/window/UIWindow.h"
#include "ui/AppView.h"
#include "ui/DrawingView.h"
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
        const ObjectClass::PropertySetter* setter = ClassRegistry::shared().classOf(object).properties.find(key);
        EXPECT_NE(setter, nullptr) << key;
        return setter != nullptr ? (*setter)(object, value) : Acceptance::wrongType;
    }
    static Value color(const std::shared_ptr<UIColor>& color) { return std::shared_ptr<NSObject>(color); }
};

using KitClasses = StyledViews;
using AppViewTest = StyledViews;
using LayerProperties = StyledViews;
using GenericLabelTest = StyledViews;
using ButtonHandler = StyledViews;

void expectShadow(const CALayer& layer, float opacity, CGSize offset) {
    EXPECT_EQ(layer.shadowOpacity(), opacity);
    EXPECT_EQ(layer.shadowOffset(), offset);
}

} // namespace

TEST_F(KitClasses, CanBeNamedByInterfaceFiles) {
    for (const char* name : {"AppView", "GenericLabel", "GenericButton", "DrawingView", "ModeTblCell", "ModeHeaderView",
                             "VibeDropdownTblCell"}) {
        const ObjectClass* named = ClassRegistry::shared().find(name);
        EXPECT_TRUE(named != nullptr && named->factory) << name;
    }
    const auto canvas = std::make_shared<DrawingView>(CGRect{});
    setByKey(*canvas, "showPencil", true);
    setByKey(*canvas, "strokeWidth", 7.0);
    setByKey(*canvas, "strokeColor", color(UIColor::blueColor()));
    EXPECT_TRUE(canvas->showPencil());
    EXPECT_EQ(canvas->strokeWidth(), 7);
    EXPECT_TRUE(*canvas->strokeColor() == *UIColor::blueColor());
    EXPECT_DEATH(canvas->setStrokeColor(nullptr), "DrawingView: the strokeColor is null");
    EXPECT_DEATH(std::make_shared<AppView>()->setStrokeColor(nullptr), "AppView: the strokeColor is null");
    EXPECT_NE(ClassRegistry::shared().classOf(*canvas).outlets.find("delegate"), nullptr);
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
    EXPECT_TRUE(view->layer()->masksToBounds()) << "clipping stays";
    view->layoutIfNeeded();
    EXPECT_TRUE(*view->layer()->borderColor() == *UIColor::blueColor());
    EXPECT_EQ(view->layer()->borderWidth(), 2.5);
    expectShadow(*view->layer(), 0, {0, 0});
    EXPECT_EQ(setByKey(*view, "enableShadow", 1.0), Acceptance::wrongType);
}

TEST_F(AppViewTest, AssertsItsLookAtEveryLayout) {
    const auto view = std::make_shared<AppView>();
    EXPECT_EQ(view->layer()->borderWidth(), 0) << "not before the first layout";
    EXPECT_TRUE(*view->layer()->borderColor() == *UIColor::blackColor());
    EXPECT_EQ(view->layer()->shadowOpacity(), 0);
    view->layoutIfNeeded();
    EXPECT_EQ(view->layer()->borderWidth(), 1);
    EXPECT_TRUE(*view->layer()->borderColor() == *UIColor::whiteColor());
    EXPECT_TRUE(*view->layer()->shadowColor() == *UIColor::blackColor());
    expectShadow(*view->layer(), 0.3f, {0, 3});
    setBorderWidth(*view, 9);
    setBorderColorApp(*view, nullptr);
    view->layer()->setShadowOpacity(1);
    view->layer()->setShadowColor(UIColor::whiteColor());
    setCornerRadius(*view, 12);
    view->setNeedsLayout();
    view->layoutIfNeeded();
    EXPECT_EQ(borderWidth(*view), 1);
    EXPECT_TRUE(*borderColorApp(*view) == *UIColor::whiteColor());
    EXPECT_EQ(view->layer()->shadowOpacity(), 0.3f);
    EXPECT_TRUE(*view->layer()->shadowColor() == *UIColor::blackColor());
    EXPECT_FALSE(view->layer()->masksToBounds()) << "a shadow needs room outside";

    view->setEnableShadow(false);
    setCornerRadius(*view, 12);
    view->setNeedsLayout();
    view->layoutIfNeeded();
    EXPECT_TRUE(view->layer()->masksToBounds());
}

TEST_F(AppViewTest, IsNotPaintedAgainForAnEqualColour) {
    const auto window = std::make_shared<UIWindow>(CGRectMake(0, 0, 90, 90));
    const auto view = std::make_shared<AppView>(CGRectMake(0, 0, 9, 9));
    window->addSubview(view);
    const auto paint = [&](CGFloat red) {
        view->setStrokeColor(UIColor::colorWithRedGreenBlueAlpha(red, 0, 0, 1));
        view->setBackgroundColor(UIColor::colorWithRedGreenBlueAlpha(red, 0, 0, 1));
        view->layer()->setShadowColor(UIColor::colorWithRedGreenBlueAlpha(red, 0, 0, 1));
        return !window->takeChanges().empty();
    };
    EXPECT_TRUE(paint(0.5));
    EXPECT_FALSE(paint(0.5));
}

TEST_F(LayerProperties, AreSetByKeyOnAnyView) {
    const auto view = std::make_shared<GenericButton>();
    EXPECT_EQ(setByKey(*view, "cornerRadius", 7.5), Acceptance::accepted);
    EXPECT_EQ(cornerRadius(*view), 7.5);
    EXPECT_TRUE(view->layer()->masksToBounds());
    view->setClipsToBounds(false);
    setCornerRadius(*view, 0);
    EXPECT_EQ(view->layer()->cornerRadius(), 0);
    EXPECT_TRUE(view->layer()->masksToBounds()) << "whatever the radius";
    setByKey(*view, "borderWidth", 2.0);
    EXPECT_EQ(view->layer()->borderWidth(), 2);
    setByKey(*view, "borderColorApp", color(UIColor::blueColor()));
    EXPECT_TRUE(*view->layer()->borderColor() == *UIColor::blueColor());
    EXPECT_EQ(setByKey(*view, "borderColorApp", color(nullptr)), Acceptance::accepted);
    EXPECT_EQ(view->layer()->borderColor(), nullptr);
}

TEST_F(GenericLabelTest, SpacesTheTextOfTheMomentInWhichSpaceIsWritten) {
    const auto label = std::make_shared<GenericLabel>();
    EXPECT_EQ(label->space(), 0);
    label->setSpace(4);
    ASSERT_TRUE(label->attributedText());
    EXPECT_EQ(label->attributedText()->string(), "") << "it had no text";
    label->setTextAlignment(NSTextAlignment::center);
    label->setText("😀 two\nlines");
    EXPECT_EQ(setByKey(*label, "space", 6.0), Acceptance::accepted);
    const NSParagraphStyle expected{.lineSpacing = 6, .alignment = NSTextAlignment::center};
    EXPECT_EQ(label->attributedText()->paragraphStyleAt(0), expected);
    EXPECT_EQ(label->attributedText()->paragraphStyleAt(label->attributedText()->length() - 1), expected);
    EXPECT_EQ(label->text(), "😀 two\nlines");

    label->setText("later");
    EXPECT_FALSE(label->attributedText() && label->attributedText()->paragraphStyleAt(0)) << "no spacing any more";
    label->setSpace(label->space());
    EXPECT_EQ(label->attributedText()->paragraphStyleAt(0), expected);
}

TEST_F(ButtonHandler, RunsTheLastOneAtATapInside) {
    class ButtonOfTheCode : public UIButton {}; // no registry names it
    const auto button = std::make_shared<ButtonOfTheCode>();
    button->sendActionsForControlEvents(UIControlEventTouchUpInside); // there is none yet
    handleButtonTouchEventWithSender(*button, button.get());
    std::vector<UIButton*> senders;
    setTouchUpInsideHandler(*button, [](UIButton&) { ADD_FAILURE() << "replaced before the tap"; });
    setTouchUpInsideHandler(*button, [&](UIButton& sender) { senders.push_back(&sender); });
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    button->sendActionsForControlEvents(UIControlEventTouchUpOutside);
    const auto other = std::make_shared<UIButton>();
    handleButtonTouchEventWithSender(*button, other.get());
    handleButtonTouchEventWithSender(*button, nullptr);
    EXPECT_EQ(senders, (std::vector<UIButton*>{button.get(), other.get()}));
    setTouchUpInsideHandler(*button, nullptr);
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(senders.size(), 2U);
}

TEST_F(ButtonHandler, MayReplaceItselfAndGoesWithItsButton) {
    const auto captured = std::make_shared<int>(0);
    auto button = std::make_shared<GenericButton>();
    setTouchUpInsideHandler(*button, [captured](UIButton& sender) {
        *captured += 1;
        setTouchUpInsideHandler(sender, [captured](UIButton&) { *captured += 10; });
        *captured += 100;
    });
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(*captured, 101);
    button->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(*captured, 111);
    EXPECT_GT(captured.use_count(), 1);
    button = nullptr;
    EXPECT_EQ(captured.use_count(), 1);
}
