#include "platform/uikit/LayoutReports.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UIScrollView.h"

#include "tests/uikit/ViewFixture.h"

#include <functional>

namespace {

class UIViewLayoutTest : public support::OnScreen {
protected:
    using View = std::shared_ptr<UIView>;

    static std::shared_ptr<NSLayoutConstraint> relate(const View& first, LayoutAttribute attribute, const View& second,
                                                      LayoutGuide guide, double constant) {
        auto constraint =
            std::make_shared<NSLayoutConstraint>(LayoutEnd{first, LayoutGuide::view, attribute}, LayoutRelation::equal,
                                                 LayoutEnd{second, guide, attribute}, 1, constant);
        constraint->setActive(true);
        return constraint;
    }
    static void fill(const View& view, const View& outer, LayoutGuide guide = LayoutGuide::view, double inset = 0) {
        relate(view, LayoutAttribute::left, outer, guide, inset);
        relate(view, LayoutAttribute::right, outer, guide, -inset);
        relate(view, LayoutAttribute::top, outer, guide, inset);
        relate(view, LayoutAttribute::bottom, outer, guide, -inset);
    }
    static std::shared_ptr<NSLayoutConstraint> fixed(const NSLayoutAnchor& anchor, CGFloat length) {
        auto constraint = anchor.constraintEqualToConstant(length);
        constraint->setActive(true);
        return constraint;
    }
};

/// Counts its layouts, and runs what a test wants to happen there.
class Watched : public UIView {
public:
    using UIView::UIView;
    void layoutSubviews() override {
        UIView::layoutSubviews();
        ++layouts;
        inLayout();
    }

    int layouts = 0;
    std::function<void()> inLayout = [] {};
};

TEST_F(UIViewLayoutTest, AViewFollowsTheEdgesItIsTiedTo) {
    const auto view = addConstrained();
    fill(view, window, LayoutGuide::view, 10);
    window->layoutIfNeeded();
    EXPECT_EQ(view->frame(), CGRectMake(10, 10, 300, 460));
    window->setFrame(CGRectMake(0, 0, 200, 100));
    window->layoutIfNeeded();
    EXPECT_EQ(view->frame(), CGRectMake(10, 10, 180, 80));
}

TEST_F(UIViewLayoutTest, NestedViewsArePlacedInTheirSuperviews) {
    const auto outer = addConstrained();
    fill(outer, window, LayoutGuide::view, 20);
    const auto inner = addConstrained(outer);
    fill(inner, outer, LayoutGuide::view, 5);
    window->layoutIfNeeded();
    EXPECT_EQ(inner->frame(), CGRectMake(5, 5, 270, 430));
}

TEST_F(UIViewLayoutTest, MarginsAndSafeAreaHoldViewsOff) {
    window->setWindowSafeAreaInsets({50, 0, 30, 0});
    const auto page = addConstrained();
    fill(page, window);
    const auto safe = addConstrained(page);
    fill(safe, page, LayoutGuide::safeArea);
    const auto inMargins = addConstrained(page);
    fill(inMargins, page, LayoutGuide::margins);
    window->layoutIfNeeded();
    EXPECT_EQ(safe->frame(), CGRectMake(0, 50, 320, 400));
    EXPECT_EQ(inMargins->frame(), CGRectMake(8, 58, 304, 384));
    window->setWindowSafeAreaInsets({});
    page->setLayoutMargins({1, 2, 3, 4});
    window->layoutIfNeeded();
    EXPECT_EQ(safe->frame(), page->bounds());
    EXPECT_EQ(inMargins->frame(), CGRectMake(2, 1, 314, 476));
}

TEST_F(UIViewLayoutTest, HiddenViewsKeepTheirPlace) {
    const auto first = addConstrained();
    const auto second = addConstrained();
    for (const auto& view : {first, second}) {
        fixed(view->heightAnchor(), 30);
        fixed(view->widthAnchor(), 30);
        relate(view, LayoutAttribute::left, window, LayoutGuide::view, 0);
    }
    relate(first, LayoutAttribute::top, window, LayoutGuide::view, 0);
    second->topAnchor().constraintEqualToAnchor(first->bottomAnchor())->setActive(true);
    first->setHidden(true);
    window->layoutIfNeeded();
    EXPECT_EQ(second->frame().minY(), 30);
}

TEST_F(UIViewLayoutTest, ATextThatWrapsPushesWhatIsBelow) {
    const auto label = addConstrained<UILabel>();
    label->setNumberOfLines(0);
    label->setText("A text that is certainly too long for one line of a hundred points");
    fixed(label->widthAnchor(), 100);
    relate(label, LayoutAttribute::left, window, LayoutGuide::view, 0);
    relate(label, LayoutAttribute::top, window, LayoutGuide::view, 0);
    const auto below = addConstrained();
    fixed(below->heightAnchor(), 10);
    relate(below, LayoutAttribute::left, window, LayoutGuide::view, 0);
    relate(below, LayoutAttribute::right, window, LayoutGuide::view, 0);
    below->topAnchor().constraintEqualToAnchor(label->bottomAnchor())->setActive(true);
    window->layoutIfNeeded();
    const CGFloat wrapped = label->frame().size.height;
    EXPECT_EQ(wrapped, label->intrinsicContentSizeForWidth(100).height);
    EXPECT_GT(wrapped, 2 * label->font()->lineHeight());
    EXPECT_EQ(below->frame().minY(), wrapped);
    label->setText("Short");
    window->layoutIfNeeded();
    EXPECT_LT(below->frame().minY(), wrapped / 2);
}

TEST_F(UIViewLayoutTest, NeighboursShareEdgesOnDevicePixels) {
    std::vector<View> thirds;
    for (int index = 0; index < 3; ++index) {
        thirds.push_back(addConstrained());
        fixed(thirds.back()->heightAnchor(), 10);
        relate(thirds.back(), LayoutAttribute::top, window, LayoutGuide::view, 0);
        index == 0 ? relate(thirds[0], LayoutAttribute::left, window, LayoutGuide::view, 0)->setActive(true)
                   : thirds[static_cast<std::size_t>(index)]
                         ->leftAnchor()
                         .constraintEqualToAnchor(thirds[static_cast<std::size_t>(index) - 1]->rightAnchor())
                         ->setActive(true);
        relate(thirds.back(), LayoutAttribute::width, thirds[0], LayoutGuide::view, 0);
    }
    relate(thirds[2], LayoutAttribute::right, window, LayoutGuide::view, 0);
    window->layoutIfNeeded();
    EXPECT_EQ(thirds[0]->frame(), CGRectMake(0, 0, 106.5, 10));
    EXPECT_EQ(thirds[1]->frame(), CGRectMake(106.5, 0, 107, 10));
    EXPECT_EQ(thirds[2]->frame(), CGRectMake(213.5, 0, 106.5, 10));
}

TEST_F(UIViewLayoutTest, ConstraintsToViewsPlacedByMasksHold) {
    const auto bar = add(CGRectMake(0, 0, 320, 40));
    bar->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    const auto view = addConstrained();
    fixed(view->widthAnchor(), 20);
    fixed(view->heightAnchor(), 20);
    relate(view, LayoutAttribute::right, bar, LayoutGuide::view, 0);
    view->topAnchor().constraintEqualToAnchor(bar->bottomAnchor())->setActive(true);
    window->layoutIfNeeded();
    EXPECT_EQ(view->frame(), CGRectMake(300, 40, 20, 20));
    bar->setFrame(CGRectMake(0, 10, 100, 40));
    window->layoutIfNeeded();
    EXPECT_EQ(view->frame(), CGRectMake(80, 50, 20, 20));
}

TEST_F(UIViewLayoutTest, AChangedConstantMovesTheView) {
    const auto view = addConstrained();
    fill(view, window);
    const auto inner = addConstrained(view);
    const auto height = fixed(inner->heightAnchor(), 10);
    relate(inner, LayoutAttribute::left, view, LayoutGuide::view, 0);
    relate(inner, LayoutAttribute::right, view, LayoutGuide::view, 0);
    relate(inner, LayoutAttribute::top, view, LayoutGuide::view, 0);
    window->layoutIfNeeded();
    EXPECT_FALSE(window->needsLayout());
    height->setConstant(293);
    EXPECT_TRUE(window->needsLayout());
    window->layoutIfNeeded();
    EXPECT_EQ(inner->frame().size.height, 293);
    EXPECT_FALSE(window->needsLayout());
}

TEST_F(UIViewLayoutTest, OnlyWhatChangedIsLaidOut) {
    const auto still = add(std::make_shared<Watched>(CGRectMake(0, 0, 10, 10)));
    const auto moving = add(std::make_shared<Watched>(CGRectMake(0, 0, 10, 10)));
    window->layoutIfNeeded();
    moving->setFrame(CGRectMake(5, 0, 10, 10));
    window->layoutIfNeeded();
    EXPECT_EQ(moving->layouts, 1); // a view that only moves keeps its layout
    moving->setFrame(CGRectMake(5, 0, 20, 10));
    window->layoutIfNeeded();
    EXPECT_EQ(moving->layouts, 2);
    EXPECT_EQ(still->layouts, 1);
}

TEST_F(UIViewLayoutTest, AChangeDuringLayoutCountsInTheSamePass) {
    const auto watched = add(std::make_shared<Watched>(CGRectMake(0, 0, 100, 100)));
    const auto box = addConstrained();
    const auto width = fixed(box->widthAnchor(), 10);
    watched->inLayout = [&] { width->setConstant(60); };
    window->layoutIfNeeded();
    EXPECT_EQ(box->frame().size.width, 60);
    EXPECT_FALSE(window->needsLayout());
}

TEST_F(UIViewLayoutTest, ALayoutThatNeverSettlesStops) {
    const auto restless = add(std::make_shared<Watched>(CGRectMake(0, 0, 10, 10)));
    restless->inLayout = [&] {
        restless->setNeedsLayout();
        restless->layoutIfNeeded();
    };
    window->layoutIfNeeded();
    EXPECT_LT(restless->layouts, 1000);
}

TEST_F(UIViewLayoutTest, ScrolledContentIsALayoutOfItsOwn) {
    const auto scroll = addConstrained<UIScrollView>();
    fill(scroll, window);
    const auto row = add(CGRectMake(0, 1000, 320, 50), scroll);
    const auto inside = addConstrained(row);
    fill(inside, row, LayoutGuide::safeArea, 5);
    window->setWindowSafeAreaInsets({100, 100, 100, 100});
    window->layoutIfNeeded();
    EXPECT_EQ(scroll->frame(), window->bounds());
    EXPECT_EQ(inside->frame(), CGRectMake(5, 5, 310, 40));
    row->setFrame(CGRectMake(0, 2000, 200, 50));
    window->layoutIfNeeded();
    EXPECT_EQ(inside->frame(), CGRectMake(5, 5, 190, 40));
}

TEST_F(UIViewLayoutTest, ARemovedViewTakesItsConstraintsAlong) {
    const auto view = addConstrained();
    fill(view, window);
    const auto own = fixed(view->widthAnchor(), 5);
    EXPECT_EQ(window->constraints().size(), 4U);
    const auto tie = window->constraints().front();
    view->removeFromSuperview();
    EXPECT_TRUE(window->constraints().empty());
    EXPECT_FALSE(tie->isActive());
    EXPECT_TRUE(own->isActive());
    window->layoutIfNeeded();
}

TEST_F(UIViewLayoutTest, AnActiveConstraintBelongsToTheNearestCommonAncestor) {
    const auto outer = add(CGRect{});
    const auto first = addConstrained(outer);
    const auto second = addConstrained(first);
    const auto third = addConstrained(outer);
    const auto tie = relate(second, LayoutAttribute::left, third, LayoutGuide::view, 0);
    EXPECT_EQ(outer->constraints().size(), 1U);
    EXPECT_TRUE(window->constraints().empty());
    tie->setActive(false);
    EXPECT_TRUE(outer->constraints().empty());
}

TEST_F(UIViewLayoutTest, TheFittingHeightHoldsTextsAndPaddingAtTheWidth) {
    const auto box = std::make_shared<UIView>(CGRectMake(0, 0, 10, 10));
    const auto label = addConstrained<UILabel>(box);
    label->setNumberOfLines(0);
    label->setText("Some words that need more and more lines the narrower it gets");
    fill(label, box, LayoutGuide::view, 12);
    for (const CGFloat width : {400.0, 200.0, 90.0, 400.0}) {
        EXPECT_EQ(box->heightFittingWidth(width), label->intrinsicContentSizeForWidth(width - 24).height + 24) << width;
    }
    label->setText("Words");
    EXPECT_EQ(box->heightFittingWidth(400), label->intrinsicContentSize().height + 24);
}

TEST_F(UIViewLayoutTest, TheFittingHeightReachesThroughViewsThatFillByMask) {
    const auto cell = std::make_shared<UIView>(CGRectMake(0, 0, 320, 44));
    const auto content = add(CGRectMake(0, 0, 320, 43), cell);
    content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    const auto inside = addConstrained(content);
    fill(inside, content, LayoutGuide::view, 10);
    fixed(inside->heightAnchor(), 100);
    EXPECT_EQ(cell->heightFittingWidth(200), 121); // the mask keeps the point below the content
    EXPECT_EQ(content->heightFittingWidth(200), 120);
}

TEST_F(UIViewLayoutTest, ConflictsAndOpenPlacesAreReportedOnce) {
    std::vector<std::string> reports;
    setLayoutReportObserver([&](const std::string& text) { reports.push_back(text); });
    const auto view = addConstrained();
    view->setAccessibilityIdentifier("box");
    fill(view, window);
    const auto width = fixed(view->widthAnchor(), 5);
    width->setIdentifier("width of the box");
    window->layoutIfNeeded();
    window->setFrame(CGRectMake(0, 0, 300, 400));
    window->layoutIfNeeded();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_NE(reports[0].find("width of the box"), std::string::npos) << reports[0];
    setLayoutReportObserver({});
}

using UIViewLayoutDeathTest = UIViewLayoutTest;

TEST_F(UIViewLayoutDeathTest, AConstraintBetweenTreesStopsTheProgram) {
    const auto here = addConstrained();
    const auto elsewhere = std::make_shared<UIView>();
    const auto constraint = here->leftAnchor().constraintEqualToAnchor(elsewhere->leftAnchor());
    constraint->setIdentifier("bridge");
    EXPECT_DEATH(constraint->setActive(true), "\"bridge\": its views have no common ancestor");
}

} // namespace
