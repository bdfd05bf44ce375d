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

/// Writes what it is told, and how the canvas's pencil is at that moment, after what others wrote.
class Delegate : public NSObject, public DrawingViewDelegate {
public:
    Delegate(UIView& canvas, std::string& heard) : m_canvas(canvas), m_heard(heard) {}
    void began() { tell("began"); }
    void ended() { tell("ended"); }

private:
    void tell(const char* what) {
        const std::shared_ptr<UIView> pencil = m_canvas.viewWithTag(100001);
        m_heard.append(what).append(!pencil ? "; " : pencil->isHidden() ? " (pencil hidden); " : " (pencil shown); ");
    }
    UIView& m_canvas;
    std::string& m_heard;
};
class BeginDelegate : public Delegate {
public:
    using Delegate::Delegate;
};
class SpeechlessDelegate : public DrawingViewDelegate {};
class UnnamedDelegate : public NSObject, public DrawingViewDelegate {};

/// What the canvas stands in: every touch that it passes on ends up here.
class Desk : public UIView {
public:
    using UIView::UIView;
    void touchesBeganWithEvent(const TouchSet&, UIEvent*) override { heard += "down, "; }
    void touchesMovedWithEvent(const TouchSet&, UIEvent*) override { heard += "move, "; }
    void touchesEndedWithEvent(const TouchSet&, UIEvent*) override { heard += "up, "; }
    std::string heard;
};

class DrawingViewTest : public testing::Test {
protected:
    DrawingViewTest() {
        registerUIKitClasses();
        registerUiClasses();
        ClassBuilder<Delegate>("Delegate", "NSObject")
            .action("didBeginDrawing", &Delegate::began)
            .action("didEndDrawing", &Delegate::ended);
        ClassBuilder<BeginDelegate>("BeginDelegate", "NSObject").action("didBeginDrawing", &Delegate::began);
        window->addSubview(desk);
        desk->addSubview(canvas);
        canvas->setDelegate(delegate);
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

    static std::shared_ptr<support::Catalog> catalogWithPencil() {
        auto catalog = support::installCatalog();
        catalog->addImage("pencil");
        return catalog;
    }

    const std::shared_ptr<support::Catalog> catalog = catalogWithPencil();
    const std::shared_ptr<UIWindow> window = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 800));
    const std::shared_ptr<Desk> desk = std::make_shared<Desk>(CGRectMake(0, 0, 400, 800));
    const std::shared_ptr<DrawingView> canvas = std::make_shared<DrawingView>(CGRectMake(10, 20, 300, 400));
    std::shared_ptr<Delegate> delegate = std::make_shared<Delegate>(*canvas, desk->heard);
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
    static_cast<void>(window->takeChanges());
    down({5, 5});
    up({5, 5});
    EXPECT_EQ(canvas->numberOfStrokes(), 0);
    EXPECT_FALSE(asksToBeDrawn());
    canvas->touchesBeganWithEvent({}, nullptr);
    canvas->touchesMovedWithEvent({}, nullptr);
    canvas->touchesEndedWithEvent({}, nullptr);
    EXPECT_EQ(desk->heard, "down, began; up, ended; down, move, up, ") << "no touch, no stroke";
}

TEST_F(DrawingViewTest, TellsItsDelegateBeforeThePencilComesAndAfterItHasGone) {
    canvas->setShowPencil(true);
    stroke({0, 0}, {1, 1});
    stroke({0, 0}, {1, 1});
    EXPECT_EQ(desk->heard, "down, began; move, up, ended (pencil hidden); "
                           "down, began (pencil hidden); move, up, ended (pencil hidden); ");
}

TEST_F(DrawingViewTest, TellsADelegateWhatItImplements) {
    class DelegateOfTheCode : public BeginDelegate { // no registry names it
        using BeginDelegate::BeginDelegate;
    };
    delegate = std::make_shared<DelegateOfTheCode>(*canvas, desk->heard);
    canvas->setDelegate(delegate);
    stroke({0, 0}, {1, 1});
    EXPECT_EQ(desk->heard, "down, began; move, up, ");
    delegate = nullptr;
    EXPECT_EQ(canvas->delegate(), nullptr) << "held weakly";
    stroke({0, 0}, {1, 1});
    const char* const refusal = "Fatal error: DrawingView: the delegate is of no class that can be asked";
    EXPECT_DEATH(canvas->setDelegate(std::make_shared<SpeechlessDelegate>()), refusal);
    EXPECT_DEATH(canvas->setDelegate(std::make_shared<UnnamedDelegate>()), refusal);
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
    stroke({0, 0}, {2, 0});
    down({0, 10});
    move({2, 10});
    report({2, 10}, UITouchPhase::cancelled);
    down({0, 20});
    EXPECT_EQ(canvas->numberOfStrokes(), 2);
    move({2, 20});
    EXPECT_EQ(drawn(), "stroke path(M 0 0 Q 0 0, 1 0 L 2 0)" + blackAndRound +
                           "stroke path(M 0 20 Q 0 20, 1 20 L 2 20)" + blackAndRound);
    EXPECT_EQ(desk->heard, "down, began; move, up, ended; down, began; move, down, began; move, ");
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
    EXPECT_FALSE(icon->clipsToBounds());
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
