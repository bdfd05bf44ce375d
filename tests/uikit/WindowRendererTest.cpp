#include "platform/uikit/window/WindowRenderer.h"

#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/controls/UIScrollView.h"
#include "tests/uikit/ViewFixture.h"

#include <random>

namespace {

constexpr int scale = 2; // as the fixture's screen

std::shared_ptr<UIColor> color(double red, double green, double blue, double alpha = 1) {
    return UIColor::colorWithRedGreenBlueAlpha(red, green, blue, alpha);
}

/// A list of cards and texts over an even background, with something translucent floating above it.
class WindowRendererTest : public support::OnScreen {
protected:
    WindowRendererTest() {
        window->setBackgroundColor(color(0.9, 0.94, 0.92));
        scroll = add(std::make_shared<UIScrollView>(CGRectMake(10, 60, 300, 400)));
        scroll->setContentSize({300, 4000});
        for (int i = 0; i < 50; ++i) {
            addCard(i);
        }
        floating = add(CGRectMake(60, 400, 200, 44));
        floating->setBackgroundColor(color(0.1, 0.4, 0.3, 0.8));
        floating->layer()->setCornerRadius(22);
    }

    void addCard(int number) {
        const auto card = add(CGRectMake(16, 80.0 * number, 268, 70), scroll);
        card->setBackgroundColor(UIColor::whiteColor());
        card->layer()->setCornerRadius(14);
        card->layer()->setBorderWidth(1);
        card->layer()->setBorderColor(UIColor::grayColor());
        card->layer()->setShadowColor(UIColor::blackColor());
        card->layer()->setShadowOpacity(0.3f);
        card->layer()->setShadowOffset({0, 3});
        const auto label = add(std::make_shared<UILabel>(CGRectMake(12, 8, 240, 54)), card);
        label->setNumberOfLines(0);
        label->setText("Card " + std::to_string(number) + " says: two truths, one dare, and a wide 🎲 smile");
        labels.push_back(label);
    }

    void expectSameAsPaintedAnew() {
        window->layoutIfNeeded();
        WindowRenderer fresh(window->bounds().size, scale);
        fresh.render(*window); // takes no changes that the kept one still needs: those were taken before
        ASSERT_TRUE(renderer.bitmap() == fresh.bitmap());
    }

    void expectSameAfterScrolling() {
        renderer.render(*window);
        scroll->setContentOffset({0, 33});
        renderer.render(*window);
        expectSameAsPaintedAnew();
    }

    std::shared_ptr<UIScrollView> scroll;
    std::shared_ptr<UIView> floating;
    std::vector<std::shared_ptr<UILabel>> labels;
    WindowRenderer renderer{{320, 480}, scale};
};

} // namespace

TEST_F(WindowRendererTest, PicturesOfScrolledContentAreThoseOfAFullRepaint) {
    std::mt19937 random(7);
    renderer.render(*window);
    for (int step = 0; step < 100; ++step) {
        const auto choice = random() % 8;
        if (choice == 0) {
            labels[random() % 12]->setText("Changed in step " + std::to_string(step));
        } else if (choice == 1) {
            floating->setFrame(floating->frame().offsetBy(0, random() % 2 == 0 ? -7.25 : 7.25));
        } else if (choice == 2) {
            scroll->setBackgroundColor(step % 3 == 0 ? UIColor::whiteColor() : nullptr);
        }
        const double distance = static_cast<double>(random() % 600) / 2 - 130;
        scroll->setContentOffset({0, scroll->contentOffset().y + distance});
        if (choice == 3) {
            labels[random() % 12]->setText("Changed after scrolling");
        } else if (choice == 4) {
            floating->setFrame(CGRectMake(10 + static_cast<double>(random() % 100), floating->frame().minY(), 200, 44));
        } else if (choice == 5) {
            floating->setHidden(!floating->isHidden());
        } else if (choice == 6) { // a bar across an end of the list
            floating->setFrame(CGRectMake(-5, step % 2 == 0 ? 380 : -10, 330, 110));
            floating->layer()->setCornerRadius(0);
            floating->setBackgroundColor(color(0.1, 0.4, 0.3));
        } else if (choice == 7) {
            floating->setAlpha(step % 2 == 0 ? 0.5 : 1);
        }
        renderer.render(*window);
        expectSameAsPaintedAnew();
    }
}

TEST_F(WindowRendererTest, AStepPaintsTheExposedStripAndNothingTwice) {
    renderer.render(*window);
    scroll->setContentOffset({0, 20});
    renderer.render(*window);
    const CGFloat strip = 300 * 20;           // the lowest rows, where a part of the floating view is
    const CGFloat around = 200 * (440 - 380); // the rest of it, and where it was moved to
    EXPECT_EQ(renderer.lastFrame().paintedPixels(), static_cast<std::size_t>((strip + around) * scale * scale));
    floating->setHidden(true);
    renderer.render(*window);
    scroll->setContentOffset({0, 40});
    EXPECT_TRUE(renderer.render(*window));
    EXPECT_EQ(renderer.lastFrame().paintedPixels(), 300u * scale * 20u * scale);
}

TEST_F(WindowRendererTest, NothingIsPaintedUnderABar) {
    UIScreen::mainScreen().configure(window->bounds().size, 3); // thirds of points, whose sums are not exact
    WindowRenderer thirds(window->bounds().size, 3);
    scroll->setFrame(CGRectMake(10, 60 + 1.0 / 3, 300, 400));
    floating->setBackgroundColor(UIColor::whiteColor());
    floating->layer()->setCornerRadius(0);
    floating->setFrame(CGRectMake(0, 380 + 1.0 / 3, 320, 80)); // down to the end of the list
    thirds.render(*window);
    for (int step = 0; step < 60; ++step) {
        scroll->setContentOffset({0, 60.0 * step + 20.0 / 3});
        thirds.render(*window);
        ASSERT_LE(thirds.lastFrame().paintedPixels(), 900U * 180) << "step " << step;
    }
}

TEST_F(WindowRendererTest, ABorderAroundScrolledContentStaysInPlace) {
    const auto frame = add(CGRectMake(0, 50, 320, 300));
    frame->layer()->setBorderWidth(4);
    frame->layer()->setBorderColor(UIColor::blueColor());
    frame->addSubview(scroll);
    scroll->setFrame(frame->bounds());
    expectSameAfterScrolling();
}

TEST_F(WindowRendererTest, ContentOverSomethingUnevenIsPaintedAnew) {
    const auto stripe = std::make_shared<UIView>(CGRectMake(0, 200, 320, 40));
    stripe->setBackgroundColor(UIColor::blueColor());
    window->insertSubviewAtIndex(stripe, 0);
    expectSameAfterScrolling();
}

TEST_F(WindowRendererTest, OnlyWhatChangedIsPainted) {
    EXPECT_TRUE(renderer.render(*window));
    EXPECT_FALSE(renderer.render(*window));
    labels[0]->setText(labels[0]->text()); // says the same
    scroll->setContentOffset(scroll->contentOffset());
    EXPECT_FALSE(renderer.render(*window));
    EXPECT_EQ(renderer.lastFrame().paintedPixels(), 0u);
    labels[1]->setText("short");
    renderer.render(*window);
    EXPECT_GT(renderer.lastFrame().paintedPixels(), 0u);
    EXPECT_LE(renderer.lastFrame().paintedPixels(), 240u * scale * 54u * scale);
    expectSameAsPaintedAnew();
}
