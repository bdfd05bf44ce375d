#include "platform/uikit/view/UIView.h"

#include "tests/uikit/ViewFixture.h"

namespace {

class UIViewTest : public support::OnScreen {
protected:
    [[nodiscard]] std::shared_ptr<UIView> hitAt(CGFloat x, CGFloat y) const {
        return window->hitTestWithEvent({x, y}, nullptr);
    }
    [[nodiscard]] CGRect damage() const {
        CGRect all;
        for (const WindowChange& change : window->takeChanges()) {
            all = all.unionWith(change.area);
        }
        return all;
    }
};

TEST_F(UIViewTest, APointHitsTheTopmostViewThatCanBeTouched) {
    const auto below = add(CGRectMake(10, 10, 100, 100));
    const auto above = add(CGRectMake(50, 50, 100, 100));
    const auto inside = add(CGRectMake(10, 10, 20, 20), above);
    EXPECT_EQ(hitAt(55, 55), above);
    EXPECT_EQ(hitAt(60, 60), inside);
    EXPECT_EQ(hitAt(300, 300), window);
    window->bringSubviewToFront(*below);
    EXPECT_EQ(hitAt(60, 60), below);
    below->setHidden(true);
    EXPECT_EQ(hitAt(60, 60), inside);
    inside->setUserInteractionEnabled(false);
    EXPECT_EQ(hitAt(60, 60), above);
    above->setAlpha(0.01);
    EXPECT_EQ(hitAt(60, 60), window);
    above->setAlpha(0.02);
    inside->setUserInteractionEnabled(true);
    inside->setFrame(CGRectMake(150, 0, 50, 50));
    EXPECT_EQ(hitAt(210, 60), window) << "drawn outside of its superview, but not reachable there";
    above->setBounds(CGRectMake(140, -10, 100, 100));
    EXPECT_EQ(hitAt(65, 65), inside) << "scrolled content is hit where it is seen";
    EXPECT_EQ(inside->convertPointToView({1, 2}, nullptr), (CGPoint{61, 62}));
    EXPECT_EQ(inside->convertPointFromView({61, 62}, window.get()), (CGPoint{1, 2}));
}

TEST_F(UIViewTest, AViewHasOneSuperviewAtATime) {
    const auto first = add(CGRectMake(0, 0, 10, 10));
    auto second = add(CGRectMake(0, 0, 10, 10));
    const auto child = add(CGRectMake(0, 0, 5, 5), first);
    second->insertSubviewAtIndex(child, 99);
    EXPECT_TRUE(first->subviews().empty());
    EXPECT_EQ(child->superview(), second.get());
    second->removeFromSuperview();
    second.reset();
    EXPECT_EQ(child->superview(), nullptr) << "it outlives its superview without one";
    EXPECT_EQ(child->window(), nullptr);
}

TEST_F(UIViewTest, AutoresizingSpreadsTheChangeOverTheFlexibleParts) {
    const auto parent = add(CGRectMake(0, 0, 100, 100));
    const auto filling = add(CGRectMake(10, 10, 80, 80), parent);
    filling->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    const auto centred = add(CGRectMake(40, 40, 20, 20), parent);
    centred->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin |
                                 UIViewAutoresizingFlexibleTopMargin);
    const auto fixed = add(CGRectMake(1, 2, 3, 4), parent);
    parent->setFrame(CGRectMake(0, 0, 200, 140));
    EXPECT_EQ(fixed->frame(), CGRectMake(1, 2, 3, 4));
    EXPECT_EQ(filling->frame(), CGRectMake(10, 10, 180, 120));
    EXPECT_EQ(centred->frame(), CGRectMake(90, 80, 20, 20));
}

TEST_F(UIViewTest, AChangeDamagesWhatIsSeenOfIt) {
    const auto view = add(CGRectMake(10, 10, 20, 20));
    const auto child = add(CGRectMake(10, 10, 20, 20), view);
    static_cast<void>(damage());
    view->setFrame(CGRectMake(50, 10, 20, 20));
    EXPECT_EQ(damage(), CGRectMake(10, 10, 70, 30));
    view->setFrame(CGRectMake(50, 10, 20, 20));
    EXPECT_TRUE(damage().isEmpty());
    view->setClipsToBounds(true);
    static_cast<void>(damage());
    child->setNeedsDisplay();
    EXPECT_EQ(damage(), CGRectMake(60, 20, 10, 10)) << "clipped where views clip";
    view->setHidden(true);
    EXPECT_EQ(damage(), CGRectMake(50, 10, 20, 20));
    child->setBackgroundColor(UIColor::blackColor());
    EXPECT_TRUE(damage().isEmpty()) << "nobody sees it";
    view->setHidden(false);
    static_cast<void>(damage());
    child->removeFromSuperview();
    EXPECT_EQ(damage(), CGRectMake(60, 20, 10, 10));
    view->addSubview(child);
    EXPECT_EQ(damage(), CGRectMake(60, 20, 10, 10));
    window->bringSubviewToFront(*view);
    EXPECT_EQ(damage(), CGRectMake(50, 10, 20, 20));
}

TEST_F(UIViewTest, AShadowIsDamagedWithWhatCastsIt) {
    const auto view = add(CGRectMake(10, 10, 20, 20));
    view->layer()->setShadowOffset({0, 3});
    static_cast<void>(damage());
    view->layer()->setShadowOpacity(0.3F);
    EXPECT_EQ(damage(), CGRectMake(10, 10, 20, 20)) << "a view without a background casts none";
    view->setBackgroundColor(UIColor::whiteColor());
    EXPECT_EQ(damage(), CGRectMake(10, 10, 20, 23));
    view->setClipsToBounds(true);
    EXPECT_EQ(damage(), CGRectMake(10, 10, 20, 23));
    view->layer()->setShadowOpacity(0);
    EXPECT_EQ(damage(), CGRectMake(10, 10, 20, 20)) << "nor does one that clips";
}

using UIViewDeathTest = UIViewTest;

TEST_F(UIViewDeathTest, AViewIsNeverInsideItselfAndItsShadowNeverBlurred) {
    const auto child = add(CGRect{});
    EXPECT_DEATH(child->addSubview(window), "cannot be added to itself");
    EXPECT_DEATH(window->layer()->setShadowRadius(3), "its radius cannot be 3");
}

} // namespace
