#include "ui/DrawingView.h"
#include "platform/graphics/DrawingContext.h"
#include "platform/runtime/ClassBuilder.h"
#include "platform/uikit/UIKitClasses.h"
#include "platform/uikit/window/UITouch.h"
#include "platform/uikit/window/UIWindow.h"
#include "tests/support/RecordingCanvas.h"
#include "tests/ui/Catalog.h"
#include "ui/UiClasses.h"

#include <gtest/gtest.h>

namespace {

using Calls = std::vector<std::string>;

/// Answers to what a test registers for it, and writes down where the canvas's pencil is at that moment.
class Delegate : public NSObject, public DrawingViewDelegate {
public:
    void began() { tell("began"); }
    void ended() { tell("ended"); }
    Calls calls;
    std::weak_ptr<DrawingView> canvas;

private:
    void tell(const std::string& what) {
        const auto shown = canvas.lock();
        const std::shared_ptr<UIView> pencil = shown ? shown->viewWithTag(100001) : nullptr;
        calls.push_back(what + (!pencil ? "" : pencil->isHidden() ? ", pencil hidden" : ", pencil shown"));
    }
};
class BothDelegate : public Delegate {};
class BeginDelegate : public Delegate {};
class SpeechlessDelegate : public DrawingViewDelegate {};

/// What the canvas stands in: every touch that it passes on ends up here.
class Desk : public UIView {
public:
    using UIView::UIView;
    void touchesBeganWithEvent(const TouchSet& touches, UIEvent*) override { tell("began", touches); }
    void touchesMovedWithEvent(const TouchSet& touches, UIEvent*) override { tell("moved", touches); }
    void touchesEndedWithEvent(const TouchSet& touches, UIEvent*) override { tell("ended", touches); }
    Calls calls;

private:
    void tell(const std::string& what, const TouchSet& touches) {
        calls.push_back(what + " " + std::to_string(touches.size()));
    }
};

class DrawingViewTest : public testing::Test {
protected:
    DrawingViewTest() {
        registerUIKitClasses();
        registerUiClasses();
        ClassBuilder<BothDelegate>("BothDelegate", "NSObject")
            .action("didBeginDrawing", &Delegate::began)
            .action("didEndDrawing", &Delegate::ended);
        ClassBuilder<BeginDelegate>("BeginDelegate", "NSObject").action("didBeginDrawing", &Delegate::began);
        catalog->addImage("pencil");
        canvas = std::make_shared<DrawingView>(CGRectMake(10, 20, 300, 400));
        window->addSubview(desk);
        desk->addSubview(canvas);
    }

    // The finger, in the canvas's coordinates.
    void down(CGPoint point) {
        touch = std::make_shared<UITouch>(inWindow(point));
        report(point, UITouchPhase::began);
    }
    void move(CGPoint point) { report(point, UITouchPhase::moved); }
    void up(CGPoint point) { report(point, UITouchPhase::ended); }
    void report(CGPoint point, UITouchPhase phase) {
        touch->moveTo(inWindow(point), phase);
        window->sendEvent(*std::make_shared<UIEvent>(TouchSet{touch}));
    }
    static CGPoint inWindow(CGPoint point) { return {point.x + 10, point.y + 20}; }
    void stroke(CGPoint from, CGPoint to) {
        down(from);
        move(to);
        up(to);
    }

    /// What the canvas draws, one line a stroke.
    [[nodiscard]] std::string drawn() const {
        RecordingCanvas recording;
        const DrawingContext context(recording, UIUserInterfaceStyle::light);
        canvas->drawRect(canvas->bounds());
        return recording.text();
    }
    [[nodiscard]] bool asksToBeDrawn() const { return !window->takeChanges().empty(); }
    [[nodiscard]] std::shared_ptr<UIView> pencil() const { return canvas->viewWithTag(100001); }

    std::shared_ptr<support::Catalog> catalog = support::installCatalog();
    std::shared_ptr<UIWindow> window = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 800));
    std::shared_ptr<Desk> desk = std::make_shared<Desk>(CGRectMake(0, 0, 400, 800));
    std::shared_ptr<DrawingView> canvas;
    std::shared_ptr<UITouch> touch;
};

const std::string blackAndRound = " rgba(0 0 0 1) width 40 join round cap round\n";

} // namespace

TEST_F(DrawingViewTest, SmoothsAStrokeThroughTheMidpointsOfItsTouches) {
    EXPECT_TRUE(*canvas->backgroundColor() == *UIColor::blackColor());
    down({0, 0});
    for (const CGPoint point : {CGPoint{10, 0}, {10, 20}, {30, 20}}) {
        move(point);
        EXPECT_EQ(canvas->numberOfStrokes(), 1);
    }
    up({99, 99}); // where the finger leaves is not part of the stroke
    EXPECT_EQ(drawn(), "stroke path(M 0 0 Q 0 0, 5 0 Q 10 0, 10 10 Q 10 20, 20 20 L 30 20)" + blackAndRound);
}

TEST_F(DrawingViewTest, ForgetsATouchThatDidNotMove) {
    const auto delegate = std::make_shared<BothDelegate>();
    canvas->setDelegate(delegate);
    static_cast<void>(window->takeChanges());
    down({5, 5});
    up({5, 5});
    EXPECT_EQ(canvas->numberOfStrokes(), 0);
    EXPECT_EQ(delegate->calls, (Calls{"began", "ended"}));
    EXPECT_FALSE(asksToBeDrawn());
    canvas->touchesBeganWithEvent({}, nullptr);
    canvas->touchesMovedWithEvent({}, nullptr);
    canvas->touchesEndedWithEvent({}, nullptr);
    EXPECT_EQ(delegate->calls.size(), 2U) << "no touch, no stroke";
    EXPECT_EQ(desk->calls, (Calls{"began 1", "ended 1", "began 0", "moved 0", "ended 0"})) << "but passed on";
}

TEST_F(DrawingViewTest, TellsADelegateWhatItImplements) {
    class DelegateOfTheCode : public BeginDelegate {}; // no registry names it
    auto begin = std::make_shared<DelegateOfTheCode>();
    canvas->setDelegate(begin);
    stroke({0, 0}, {1, 1});
    EXPECT_EQ(begin->calls, Calls{"began"});
    begin = nullptr;
    EXPECT_EQ(canvas->delegate(), nullptr) << "held weakly";
    stroke({0, 0}, {1, 1});
    EXPECT_DEATH(canvas->setDelegate(std::make_shared<SpeechlessDelegate>()),
                 "Fatal error: the delegate of a DrawingView is no NSObject");
}

TEST_F(DrawingViewTest, TellsItsDelegateBeforeThePencilComesAndAfterItHasGone) {
    const auto delegate = std::make_shared<BothDelegate>();
    delegate->canvas = canvas;
    canvas->setDelegate(delegate);
    canvas->setShowPencil(true);
    stroke({0, 0}, {1, 1});
    stroke({0, 0}, {1, 1});
    EXPECT_EQ(delegate->calls,
              (Calls{"began", "ended, pencil hidden", "began, pencil hidden", "ended, pencil hidden"}));
    EXPECT_EQ(desk->calls, (Calls{"began 1", "moved 1", "ended 1", "began 1", "moved 1", "ended 1"}));
}

TEST_F(DrawingViewTest, KeepsColourAndWidthOfFinishedStrokes) {
    stroke({0, 0}, {2, 0});
    static_cast<void>(window->takeChanges());
    canvas->setStrokeColor(UIColor::whiteColor());
    EXPECT_TRUE(asksToBeDrawn());
    canvas->setStrokeWidth(3);
    EXPECT_TRUE(asksToBeDrawn());
    down({0, 10});
    EXPECT_FALSE(asksToBeDrawn());
    move({2, 10});
    EXPECT_TRUE(asksToBeDrawn());
    const std::string first = "stroke path(M 0 0 Q 0 0, 1 0 L 2 0)" + blackAndRound;
    EXPECT_EQ(drawn(), first + "stroke path(M 0 10 Q 0 10, 1 10 L 2 10) rgba(1 1 1 1) width 3 join round cap round\n");
    canvas->setStrokeColor(UIColor::colorWithRedGreenBlueAlpha(1, 0, 0, 1));
    EXPECT_NE(drawn().find("rgba(1 1 1 1)"), std::string::npos) << "not before its next move";
    move({2, 12});
    EXPECT_EQ(drawn(), first + "stroke path(M 0 10 Q 0 10, 1 10 Q 2 10, 2 11 L 2 12) rgba(1 0 0 1) width 3 join round "
                               "cap round\n");
    up({2, 12});
    EXPECT_EQ(canvas->numberOfStrokes(), 2);
}

TEST_F(DrawingViewTest, StoresTheStrokeInProgressAgainAfterClear) {
    stroke({0, 0}, {2, 0});
    down({0, 10});
    move({2, 10});
    static_cast<void>(window->takeChanges());
    canvas->clear();
    EXPECT_TRUE(asksToBeDrawn());
    EXPECT_EQ(canvas->numberOfStrokes(), 0);
    canvas->clear();
    EXPECT_FALSE(asksToBeDrawn()) << "an empty canvas stays as it is";
    move({4, 10});
    EXPECT_EQ(drawn(), "stroke path(M 0 10 Q 0 10, 1 10 Q 2 10, 3 10 L 4 10)" + blackAndRound);
}

TEST_F(DrawingViewTest, LetsTheNextStrokeTakeACancelledOnesPlace) {
    const auto delegate = std::make_shared<BothDelegate>();
    canvas->setDelegate(delegate);
    stroke({0, 0}, {2, 0});
    down({0, 10});
    move({2, 10});
    report({2, 10}, UITouchPhase::cancelled);
    EXPECT_EQ(canvas->numberOfStrokes(), 2);
    down({0, 20});
    EXPECT_EQ(canvas->numberOfStrokes(), 2);
    move({2, 20});
    EXPECT_EQ(drawn(), "stroke path(M 0 0 Q 0 0, 1 0 L 2 0)" + blackAndRound +
                           "stroke path(M 0 20 Q 0 20, 1 20 L 2 20)" + blackAndRound);
    EXPECT_EQ(delegate->calls, (Calls{"began", "ended", "began", "began"}));
}

TEST_F(DrawingViewTest, ShowsThePencilBesideTheFingerWhileItIsDown) {
    stroke({100, 200}, {110, 210});
    canvas->setShowPencil(true);
    EXPECT_EQ(pencil(), nullptr) << "not before the next touch";
    down({100, 200});
    const auto icon = std::dynamic_pointer_cast<UIImageView>(pencil());
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->image(), catalog->images["pencil"]);
    EXPECT_EQ(icon->contentMode(), UIViewContentMode::scaleAspectFill);
    EXPECT_EQ(icon->frame(), CGRectMake(100 + 90 - 50, 200 - 90 - 107.5, 100, 215));
    EXPECT_FALSE(icon->isHidden());
    move({120, 200});
    EXPECT_EQ(icon->center(), (CGPoint{210, 110}));
    EXPECT_FALSE(icon->isHidden());
    up({130, 230});
    EXPECT_EQ(icon->center(), (CGPoint{220, 140}));
    EXPECT_TRUE(icon->isHidden());
    stroke({0, 0}, {1, 1});
    EXPECT_EQ(canvas->subviews().size(), 1U) << "added once";

    down({100, 200});
    canvas->setShowPencil(false);
    up({0, 0});
    EXPECT_FALSE(icon->isHidden()) << "left where it was";
    EXPECT_EQ(icon->center(), (CGPoint{190, 110}));
}

TEST_F(DrawingViewTest, AddsNoPencilBesideAViewWithThePencilsTag) {
    const auto holder = std::make_shared<UIView>();
    const auto tagged = std::make_shared<UIView>();
    tagged->setTag(100001);
    holder->addSubview(tagged);
    canvas->addSubview(holder);
    canvas->setShowPencil(true);
    stroke({0, 0}, {1, 1});
    EXPECT_EQ(canvas->subviews().size(), 1U);
}

TEST_F(DrawingViewTest, IsSetByKey) {
    const ObjectClass& names = *ClassRegistry::shared().classOf(*canvas);
    const std::shared_ptr<UIColor> red = UIColor::colorWithRedGreenBlueAlpha(1, 0, 0, 1);
    EXPECT_EQ((*names.property("showPencil"))(*canvas, true), Acceptance::accepted);
    EXPECT_EQ((*names.property("strokeWidth"))(*canvas, 7.0), Acceptance::accepted);
    EXPECT_EQ((*names.property("strokeColor"))(*canvas, std::shared_ptr<NSObject>(red)), Acceptance::accepted);
    const auto delegate = std::make_shared<BothDelegate>();
    EXPECT_EQ((*names.outlet("delegate"))(*canvas, delegate), Acceptance::accepted);
    EXPECT_TRUE(canvas->showPencil());
    EXPECT_EQ(canvas->strokeWidth(), 7);
    EXPECT_EQ(canvas->strokeColor(), red);
    EXPECT_EQ(canvas->delegate(), delegate);
}
