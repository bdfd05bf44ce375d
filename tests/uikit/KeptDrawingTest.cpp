#include "platform/graphics/UIBezierPath.h"
#include "platform/graphics/cairo/CairoCanvas.h"
#include "platform/uikit/controls/UIScrollView.h"
#include "platform/uikit/window/ViewPainter.h"
#include "platform/uikit/window/WindowRenderer.h"
#include "tests/uikit/ViewFixture.h"

#include <cmath>
#include <random>

namespace {

struct Stroke {
    std::shared_ptr<UIBezierPath> path = UIBezierPath::bezierPath();
    std::shared_ptr<UIColor> color = UIColor::blackColor();
    bool isFilled = false;
};

/// A view that draws its strokes, one after another.
class Sketch : public UIView {
public:
    using UIView::UIView;
    void drawRect(const CGRect&) override {
        for (const Stroke& stroke : strokes) {
            stroke.color->set();
            stroke.isFilled ? stroke.path->fill() : stroke.path->stroke();
        }
    }
    std::vector<Stroke> strokes;
};

/// A sketch between a view below, one on it and one beside it, at any scale and
/// in both appearances.
class KeptDrawingTest : public support::OnScreen, public testing::WithParamInterface<int> {
protected:
    KeptDrawingTest() {
        window->setBackgroundColor(UIColor::dynamicColor({0.9, 0.9, 1, 1}, {0, 0, 0.2, 1}));
        scroll->setContentSize({260, 900});
        sketch->setBackgroundColor(UIColor::dynamicColor({1, 1, 1, 1}, {0.1, 0.1, 0.1, 1}));
        note->setBackgroundColor(UIColor::colorWithRedGreenBlueAlpha(0.2, 0.6, 0.4, 0.5));
    }

    double number(double low, double high) { return std::uniform_real_distribution(low, high)(random); }
    CGPoint point() { return {number(-20, 280), number(-20, 320)}; }

    Stroke newStroke() {
        Stroke stroke;
        const auto shade = [&] { return number(0, 1); };
        const RGBA light{shade(), shade(), shade(), random() % 3 == 0 ? shade() : 1};
        const RGBA dark{shade(), shade(), shade(), 1};
        stroke.color = UIColor::dynamicColor(light, random() % 2 == 0 ? light : dark);
        stroke.path->setLineWidth(random() % 5 == 0 ? 40 : number(0.2, 12));
        stroke.path->setLineJoinStyle(static_cast<CGLineJoin>(random() % 3));
        stroke.path->setLineCapStyle(static_cast<CGLineCap>(random() % 3));
        stroke.isFilled = random() % 6 == 0;
        stroke.path->moveToPoint(point());
        extend(stroke);
        return stroke;
    }
    void extend(Stroke& stroke) {
        for (auto pieces = random() % 6; pieces > 0; --pieces) {
            stroke.path->addQuadCurveToPointControlPoint(point(), point());
        }
        stroke.path->addLineToPoint(point());
    }

    /// One thing that a program may do between two frames.
    void change() {
        const auto choice = random() % 25;
        if (choice < 8 || sketch->strokes.empty()) {
            sketch->strokes.push_back(newStroke());
        } else if (choice < 12) {
            extend(sketch->strokes.back());
        } else if (choice == 12) {
            sketch->strokes.back() = newStroke();
        } else if (choice == 13) {
            sketch->strokes[random() % sketch->strokes.size()].color = UIColor::whiteColor();
        } else if (choice == 14) {
            sketch->strokes.clear();
        } else if (choice >= 20) {
            note->setFrame(CGRectMake(number(-30, 200), number(-30, 200), number(5, 90), number(5, 90)));
        } else if (choice == 16) {
            sketch->setFrame(CGRectMake(random() % 2 == 0 ? 5.5 : std::round(number(-40, 40)), 12,
                                        random() % 4 == 0 ? number(90, 300) : 250, 310));
        } else if (choice == 17) {
            window->setUserInterfaceStyle(random() % 2 == 0 ? UIUserInterfaceStyle::light : UIUserInterfaceStyle::dark);
        } else if (choice == 18 || choice == 15) {
            scroll->setContentOffset({0, scroll->contentOffset().y + static_cast<double>(random() % 60) - 30});
        } else {
            changeLook();
        }
        sketch->setNeedsDisplay();
        const CGRect frame = sketch->frame();
        if (frame.minX() != std::floor(frame.minX()) || frame.maxX() != std::floor(frame.maxX()) ||
            sketch->layer()->cornerRadius() > 0 || scroll->layer()->cornerRadius() > 0) {
            window->setNeedsDisplay(); // the edges of paths that are not kept depend on what is painted of them
        }
    }
    void changeLook() {
        sketch->setAlpha(random() % 2 == 0 ? 1 : 0.6);
        sketch->layer()->setCornerRadius(random() % 5 == 0 ? 20 : 0);
        scroll->layer()->setCornerRadius(random() % 5 == 0 ? 30 : 0);
        sketch->setClipsToBounds(random() % 2 == 0);
    }

    [[nodiscard]] Bitmap paintedPathByPath(int scale) const {
        const CGSize size = window->bounds().size;
        Bitmap picture(static_cast<int>(size.width) * scale, static_cast<int>(size.height) * scale);
        CairoCanvas canvas(picture, scale);
        ViewPainter(canvas, window->userInterfaceStyle()).paint(*window, window->bounds());
        return picture;
    }

    std::mt19937 random{5};
    const std::shared_ptr<UIScrollView> scroll = add(std::make_shared<UIScrollView>(CGRectMake(20, 30, 280, 360)));
    const std::shared_ptr<Sketch> sketch = add(std::make_shared<Sketch>(CGRectMake(10, 10, 250, 310)), scroll);
    const std::shared_ptr<UIView> note = add(CGRectMake(40, 50, 60, 40), sketch);
};

} // namespace

TEST_P(KeptDrawingTest, GivesThePixelsOfDrawingEveryPath) {
    const int scale = GetParam();
    WindowRenderer renderer(window->bounds().size, scale);
    renderer.render(*window);
    for (int step = 0; step < 150; ++step) {
        for (auto changes = random() % 3; changes < 3; ++changes) {
            change();
        }
        renderer.render(*window);
        ASSERT_TRUE(renderer.bitmap() == paintedPathByPath(scale)) << "step " << step;
    }
}
INSTANTIATE_TEST_SUITE_P(Scales, KeptDrawingTest, testing::Values(1, 2, 3));

TEST_F(KeptDrawingTest, PaintsWhatAPathAddsAndGivesThePictureBack) {
    WindowRenderer renderer(window->bounds().size, 2);
    const auto pixelsOfFrame = [&] {
        renderer.render(*window);
        return renderer.lastFrame().paintedPixels();
    };
    for (int i = 0; i < 20; ++i) {
        sketch->strokes.push_back(newStroke());
    }
    renderer.render(*window);
    Stroke added;
    added.path->setLineWidth(4);
    added.path->setLineJoinStyle(CGLineJoin::round);
    added.path->moveToPoint({100, 100});
    added.path->addLineToPoint({150, 120});
    sketch->strokes.push_back(added);
    sketch->setNeedsDisplay();
    EXPECT_LE(pixelsOfFrame(), 56U * 2 * 26 * 2);
    added.path->addLineToPoint({160, 110});
    sketch->setNeedsDisplay();
    EXPECT_LE(pixelsOfFrame(), 66U * 2 * 26 * 2);
    sketch->setNeedsDisplay();
    EXPECT_EQ(pixelsOfFrame(), 0U) << "it draws what it drew";

    EXPECT_EQ(renderer.keptDrawings(), 1U);
    sketch->strokes.clear();
    sketch->setNeedsDisplay();
    EXPECT_EQ(pixelsOfFrame(), 250U * 2 * 310 * 2);
    EXPECT_EQ(renderer.keptDrawings(), 0U) << "an empty sketch needs none";
    sketch->strokes.push_back(added);
    sketch->setNeedsDisplay();
    renderer.render(*window);
    EXPECT_EQ(renderer.keptDrawings(), 1U);
    scroll->removeFromSuperview();
    renderer.render(*window);
    EXPECT_EQ(renderer.keptDrawings(), 0U);
}
