#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/controls/UIScrollView.h"
#include "platform/uikit/view/LayoutReports.h"

#include "tests/uikit/ViewFixture.h"

#include <functional>

namespace {

using support::tie;
using support::tieEdges;

class UIViewLayoutTest : public support::OnScreen {
protected:
    using View = std::shared_ptr<UIView>;

    static std::shared_ptr<NSLayoutConstraint> fixed(const View& view, LayoutAttribute length, CGFloat points) {
        auto constraint = std::make_shared<NSLayoutConstraint>(LayoutEnd{view, LayoutGuide::view, length},
                                                               LayoutRelation::equal, LayoutEnd{}, 1, points);
        constraint->setActive(true);
        return constraint;
    }
    static void below(const View& view, const View& upper) {
        view->topAnchor().constraintEqualToAnchor(upper->bottomAnchor())->setActive(true);
    }

    static constexpr auto left = LayoutAttribute::left;
    static constexpr auto right = LayoutAttribute::right;
    static constexpr auto top = LayoutAttribute::top;
    static constexpr auto width = LayoutAttribute::width;
    static constexpr auto height = LayoutAttribute::height;
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
    tieEdges(view, window, 10);
    const auto inner = addConstrained(view);
    tieEdges(inner, view, 5);
    window->layoutIfNeeded();
    EXPECT_EQ(view->frame(), CGRectMake(10, 10, 300, 460));
    EXPECT_EQ(inner->frame(), CGRectMake(5, 5, 290, 450));
    window->setFrame(CGRectMake(0, 0, 200, 100));
    window->layoutIfNeeded();
    EXPECT_EQ(view->frame(), CGRectMake(10, 10, 180, 80));
}

TEST_F(UIViewLayoutTest, MarginsAndSafeAreaHoldViewsOff) {
    window->setWindowSafeAreaInsets({50, 0, 30, 0});
    const auto page = addConstrained();
    tieEdges(page, window);
    const auto safe = addConstrained(page);
    tieEdges(safe, page, 0, LayoutGuide::safeArea);
    const auto inMargins = addConstrained(page);
    tieEdges(inMargins, page, 0, LayoutGuide::margins);
    window->layoutIfNeeded();
    EXPECT_EQ(safe->frame(), CGRectMake(0, 50, 320, 400));
    EXPECT_EQ(inMargins->frame(), CGRectMake(8, 58, 304, 384));
    window->setWindowSafeAreaInsets({});
    page->setLayoutMargins({1, 2, 3, 4});
    window->layoutIfNeeded();
    EXPECT_EQ(safe->frame(), page->bounds());
    EXPECT_EQ(inMargins->frame(), CGRectMake(2, 1, 314, 476));
}

TEST_F(UIViewLayoutTest, ATextThatWrapsPushesWhatIsBelow) {
    const auto label = addConstrained<UILabel>();
    label->setNumberOfLines(0);
    label->setText("A text that is certainly too long for one line of a hundred points");
    fixed(label, width, 100);
    tie(label, {left, top}, window);
    const auto box = addConstrained();
    fixed(box, height, 10);
    tie(box, {left, right}, window);
    below(box, label);
    window->layoutIfNeeded();
    const CGFloat wrapped = label->frame().size.height;
    EXPECT_EQ(wrapped, label->intrinsicContentSizeForWidth(100).height);
    EXPECT_GT(wrapped, 2 * label->font()->lineHeight());
    EXPECT_EQ(box->frame().minY(), wrapped);
    label->setHidden(true); // hidden views keep their place
    window->layoutIfNeeded();
    EXPECT_EQ(box->frame().minY(), wrapped);
    label->setText("Short");
    window->layoutIfNeeded();
    EXPECT_LT(box->frame().minY(), wrapped / 2);
}

TEST_F(UIViewLayoutTest, NeighboursShareEdgesOnDevicePixels) {
    const std::vector<View> thirds{addConstrained(), addConstrained(), addConstrained()};
    for (const View& third : thirds) {
        fixed(third, height, 10);
        tie(third, {top}, window);
        tie(third, {LayoutAttribute::width}, thirds[0]);
    }
    tie(thirds[0], {left}, window);
    thirds[1]->leftAnchor().constraintEqualToAnchor(thirds[0]->rightAnchor())->setActive(true);
    thirds[2]->leftAnchor().constraintEqualToAnchor(thirds[1]->rightAnchor())->setActive(true);
    tie(thirds[2], {right}, window);
    window->layoutIfNeeded();
    EXPECT_EQ(thirds[0]->frame(), CGRectMake(0, 0, 106.5, 10));
    EXPECT_EQ(thirds[1]->frame(), CGRectMake(106.5, 0, 107, 10));
    EXPECT_EQ(thirds[2]->frame(), CGRectMake(213.5, 0, 106.5, 10));
}

TEST_F(UIViewLayoutTest, ConstraintsToViewsPlacedByMasksHold) {
    const auto bar = add(CGRectMake(0, 0, 320, 40));
    bar->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    const auto view = addConstrained();
    fixed(view, width, 20);
    fixed(view, height, 20);
    tie(view, {right}, bar);
    below(view, bar);
    window->layoutIfNeeded();
    EXPECT_EQ(view->frame(), CGRectMake(300, 40, 20, 20));
    bar->setFrame(CGRectMake(0, 10, 100, 40));
    window->layoutIfNeeded();
    EXPECT_EQ(view->frame(), CGRectMake(80, 50, 20, 20));
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

TEST_F(UIViewLayoutTest, AChangedConstantMovesTheViewAndCountsInTheSamePassWhenItChangesThere) {
    const auto watched = add(std::make_shared<Watched>(CGRectMake(0, 0, 100, 100)));
    const auto box = addConstrained();
    tie(box, {left, top}, window);
    fixed(box, height, 10);
    const auto fixedWidth = fixed(box, width, 10);
    window->layoutIfNeeded();
    EXPECT_FALSE(window->needsLayout());
    fixedWidth->setConstant(30);
    EXPECT_TRUE(window->needsLayout());
    window->layoutIfNeeded();
    EXPECT_EQ(box->frame().size.width, 30);
    watched->inLayout = [&] { fixedWidth->setConstant(60); };
    watched->setNeedsLayout();
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
    tieEdges(scroll, window);
    const auto row = add(CGRectMake(0, 1000, 320, 50), scroll);
    const auto inside = addConstrained(row);
    tieEdges(inside, row, 5, LayoutGuide::safeArea);
    window->setWindowSafeAreaInsets({100, 100, 100, 100});
    window->layoutIfNeeded();
    EXPECT_EQ(scroll->frame(), window->bounds());
    EXPECT_EQ(inside->frame(), CGRectMake(5, 5, 310, 40));
    row->setFrame(CGRectMake(0, 2000, 200, 50));
    window->layoutIfNeeded();
    EXPECT_EQ(inside->frame(), CGRectMake(5, 5, 190, 40));
}

TEST_F(UIViewLayoutTest, ARemovedViewTakesItsConstraintsAlong) {
    const auto outer = add(CGRectMake(0, 0, 100, 100));
    const auto view = addConstrained(outer);
    const auto inner = addConstrained(view);
    const auto between = tie(inner, {left}, outer);
    const auto own = fixed(view, width, 5);
    EXPECT_EQ(outer->constraints().size(), 1U) << "the nearest common ancestor holds it";
    EXPECT_TRUE(window->constraints().empty());
    view->removeFromSuperview();
    EXPECT_TRUE(outer->constraints().empty());
    EXPECT_FALSE(between->isActive());
    EXPECT_TRUE(own->isActive());
    window->layoutIfNeeded();
}

TEST_F(UIViewLayoutTest, TheFittingHeightHoldsTextsAndPaddingAtTheWidth) {
    const auto cell = std::make_shared<UIView>(CGRectMake(0, 0, 320, 44));
    const auto content = add(CGRectMake(0, 0, 320, 43), cell);
    content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    const auto label = addConstrained<UILabel>(content);
    label->setNumberOfLines(0);
    label->setText("Some words that need more and more lines the narrower it gets");
    tieEdges(label, content, 12);
    for (const CGFloat wide : {400.0, 200.0, 90.0, 400.0}) {
        const CGFloat text = label->intrinsicContentSizeForWidth(wide - 24).height;
        EXPECT_EQ(content->heightFittingWidth(wide), text + 24) << wide;
        EXPECT_EQ(cell->heightFittingWidth(wide), text + 25) << "the mask keeps the point below the content";
    }
    label->setText("Words");
    EXPECT_EQ(content->heightFittingWidth(400), label->intrinsicContentSize().height + 24);
}

TEST_F(UIViewLayoutTest, ConflictsAndOpenPlacesAreReportedOnce) {
    std::vector<std::string> reports;
    setLayoutReportObserver([&](const std::string& text) { reports.push_back(text); });
    const auto view = addConstrained();
    view->setAccessibilityIdentifier("box");
    tieEdges(view, window);
    const auto fixedWidth = fixed(view, width, 5);
    fixedWidth->setIdentifier("width of the box");
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
