#include "platform/uikit/controls/UILabel.h"
#include "platform/uikit/controls/UIScrollView.h"
#include "platform/uikit/view/ViewSystem.h"

#include "tests/uikit/ViewFixture.h"

#include <gmock/gmock.h>

#include <functional>

namespace {

using support::fix;
using support::tie;
using support::tieEdges;
using testing::ElementsAre;
using testing::HasSubstr;
using enum LayoutAttribute;

/// Counts its layouts, and runs what a test wants to happen there.
struct Watched : UIView {
    using UIView::UIView;
    void layoutSubviews() override {
        UIView::layoutSubviews();
        ++layouts;
        inLayout();
    }

    int layouts = 0;
    std::function<void()> inLayout = [] {};
};

class UIViewLayoutTest : public support::OnScreen {
protected:
    using View = std::shared_ptr<UIView>;

    [[nodiscard]] CGRect laidOut(const View& view) const {
        window->layoutIfNeeded();
        return view->frame();
    }
    /// A box of 20 by 20 under another view.
    [[nodiscard]] View addBelow(const View& upper) const {
        const View box = addConstrained();
        fix(box, width, 20);
        fix(box, height, 20);
        box->topAnchor().constraintEqualToAnchor(upper->bottomAnchor())->setActive(true);
        return box;
    }
};

TEST_F(UIViewLayoutTest, ViewsFollowEdgesMarginsAndSafeArea) {
    window->setWindowSafeAreaInsets({50, 0, 30, 0});
    const View page = addConstrained();
    tieEdges(page, window);
    const View safe = addConstrained(page);
    tieEdges(safe, page, 0, LayoutGuide::safeArea);
    const View inMargins = addConstrained(page);
    tieEdges(inMargins, page, 0, LayoutGuide::margins);
    EXPECT_EQ(laidOut(safe), CGRectMake(0, 50, 320, 400));
    EXPECT_EQ(inMargins->frame(), CGRectMake(8, 58, 304, 384));
    window->setWindowSafeAreaInsets({});
    page->setLayoutMargins({1, 2, 3, 4});
    EXPECT_EQ(laidOut(inMargins), CGRectMake(2, 1, 314, 476));
    EXPECT_EQ(safe->frame(), page->bounds());
}

TEST_F(UIViewLayoutTest, LeadingEdgesStandWhereTheLanguageBegins) {
    UIScreen::mainScreen().setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection::rightToLeft);
    window->setWindowSafeAreaInsets({0, 10, 0, 30});
    const View box = addConstrained();
    tie(box, {leading}, window, 16, LayoutGuide::safeArea);
    const auto end = std::make_shared<NSLayoutConstraint>(LayoutEnd{box, LayoutGuide::view, trailing},
                                                          LayoutRelation::greaterThanOrEqual,
                                                          LayoutEnd{window, LayoutGuide::safeArea, trailing}, 1, -210);
    end->setActive(true);
    tie(box, {top}, window);
    fix(box, height, 20);
    const auto narrow = fix(box, width, 0); // as far as the others let it
    narrow->setPriority(100);
    EXPECT_EQ(laidOut(box), CGRectMake(220, 0, 54, 20));
    UIScreen::mainScreen().setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection::leftToRight);
}

TEST_F(UIViewLayoutTest, AConstraintHoldsOnlyWhileItIsActive) {
    const View box = addConstrained();
    tie(box, {left, top}, window);
    fix(box, height, 20);
    fix(box, width, 30)->setPriority(500);
    const auto wide = fix(box, width, 50);
    EXPECT_EQ(laidOut(box), CGRectMake(0, 0, 50, 20));
    wide->setActive(false);
    EXPECT_EQ(laidOut(box), CGRectMake(0, 0, 30, 20));
    wide->setActive(true);
    EXPECT_EQ(laidOut(box), CGRectMake(0, 0, 50, 20));
}

TEST_F(UIViewLayoutTest, ATextThatWrapsPushesWhatIsBelow) {
    const auto label = addConstrained<UILabel>();
    label->setNumberOfLines(0);
    label->setText("A text that is certainly too long for one line of a hundred points");
    fix(label, width, 100);
    tie(label, {left, top}, window);
    const View box = addBelow(label);
    const CGFloat wrapped = label->intrinsicContentSizeForWidth(100).height;
    EXPECT_EQ(laidOut(label).size.height, wrapped);
    EXPECT_EQ(box->frame().minY(), wrapped);
    label->setHidden(true);
    EXPECT_EQ(laidOut(box).minY(), wrapped) << "hidden views keep their place";
    label->setText("Short");
    EXPECT_LT(laidOut(box).minY(), wrapped / 2);
}

TEST_F(UIViewLayoutTest, NeighboursShareEdgesOnDevicePixels) {
    const std::vector<View> thirds{addConstrained(), addConstrained(), addConstrained()};
    for (const View& third : thirds) {
        tie(third, {top, bottom}, window);
        tie(third, {width}, thirds[0]);
    }
    tie(thirds[0], {left}, window);
    thirds[1]->leftAnchor().constraintEqualToAnchor(thirds[0]->rightAnchor())->setActive(true);
    thirds[2]->leftAnchor().constraintEqualToAnchor(thirds[1]->rightAnchor())->setActive(true);
    tie(thirds[2], {right}, window);
    EXPECT_EQ(laidOut(thirds[0]), CGRectMake(0, 0, 106.5, 480));
    EXPECT_EQ(thirds[1]->frame(), CGRectMake(106.5, 0, 107, 480));
    EXPECT_EQ(thirds[2]->frame(), CGRectMake(213.5, 0, 106.5, 480));
}

TEST_F(UIViewLayoutTest, ConstraintsToViewsPlacedByMasksHold) {
    const View bar = add(CGRectMake(0, 0, 320, 40));
    bar->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    const View box = addBelow(bar);
    tie(box, {right}, bar);
    EXPECT_EQ(laidOut(box), CGRectMake(300, 40, 20, 20));
    bar->setFrame(CGRectMake(0, 10, 100, 40));
    EXPECT_EQ(laidOut(box), CGRectMake(80, 50, 20, 20));
}

TEST_F(UIViewLayoutTest, OnlyWhatChangedIsLaidOutAgainAlsoWhatChangesInALayout) {
    const auto still = add(std::make_shared<Watched>(CGRectMake(0, 0, 10, 10)));
    const auto moving = add(std::make_shared<Watched>(CGRectMake(0, 0, 10, 10)));
    const View box = addConstrained();
    tie(box, {left, top, bottom}, window);
    const auto boxWidth = fix(box, width, 10);
    window->layoutIfNeeded();
    moving->setFrame(CGRectMake(5, 0, 10, 10));
    window->layoutIfNeeded();
    EXPECT_EQ(moving->layouts, 1) << "a view that only moves keeps its layout";
    moving->inLayout = [&] { boxWidth->setConstant(60); };
    moving->setFrame(CGRectMake(5, 0, 20, 10));
    EXPECT_EQ(laidOut(box).size.width, 60);
    EXPECT_FALSE(window->needsLayout());
    EXPECT_EQ(moving->layouts, 2);
    EXPECT_EQ(still->layouts, 1);
    boxWidth->setConstant(30);
    EXPECT_EQ(laidOut(box).size.width, 30);
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
    const View row = add(CGRectMake(0, 1000, 320, 50), scroll);
    const View inside = addConstrained(row);
    tieEdges(inside, row, 5, LayoutGuide::safeArea);
    window->setWindowSafeAreaInsets({100, 100, 100, 100});
    EXPECT_EQ(laidOut(scroll), window->bounds());
    EXPECT_EQ(inside->frame(), CGRectMake(5, 5, 310, 40));
    row->setFrame(CGRectMake(0, 2000, 200, 50));
    EXPECT_EQ(laidOut(inside), CGRectMake(5, 5, 190, 40));
}

TEST_F(UIViewLayoutTest, ARemovedViewTakesItsConstraintsAlong) {
    const View outer = add(CGRectMake(0, 0, 100, 100));
    const View view = addConstrained(outer);
    const View inner = addConstrained(view);
    const auto between = tie(inner, {left}, outer);
    const auto own = fix(view, width, 5);
    EXPECT_EQ(outer->constraints().size(), 1U) << "the nearest common ancestor holds it";
    EXPECT_TRUE(window->constraints().empty());
    view->removeFromSuperview();
    EXPECT_TRUE(outer->constraints().empty());
    EXPECT_FALSE(between->isActive());
    EXPECT_TRUE(own->isActive());
}

TEST_F(UIViewLayoutTest, TheFittingHeightHoldsTextsAndPaddingAtTheWidth) {
    const auto cell = std::make_shared<UIView>(CGRectMake(0, 0, 320, 44));
    const View content = add(CGRectMake(0, 0, 320, 43), cell);
    content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    const auto label = addConstrained<UILabel>(content);
    label->setNumberOfLines(0);
    tieEdges(label, content, 12);
    for (const char* words : {"Some words that need more and more lines the narrower it gets", "Words"}) {
        label->setText(words);
        for (const CGFloat wide : {400.0, 200.0, 90.0, 400.0}) {
            const CGFloat text = label->intrinsicContentSizeForWidth(wide - 24).height;
            EXPECT_EQ(content->heightFittingWidth(wide), text + 24) << wide;
            EXPECT_EQ(cell->heightFittingWidth(wide), text + 25) << "the mask keeps the point below the content";
        }
    }
}

/// Counts how often it is asked for the width of its whole text on one line.
class AskedLabel : public UILabel {
public:
    [[nodiscard]] CGSize intrinsicContentSize() const override {
        ++asked;
        return UILabel::intrinsicContentSize();
    }
    mutable int asked = 0;
};

TEST_F(UIViewLayoutTest, ATextIsMeasuredOnlyAtTheWidthThatStrongerWishesGiveIt) {
    const View box = addConstrained();
    tie(box, {left, top}, window);
    fix(box, height, 20);
    const auto boxWidth = fix(box, width, 40);
    boxWidth->setPriority(900);
    const auto label = addConstrained<AskedLabel>();
    label->setNumberOfLines(0);
    label->setText("Some words that need more and more lines the narrower it gets");
    tie(label, {right, top}, window);
    label->leftAnchor().constraintEqualToAnchor(box->rightAnchor())->setActive(true);
    EXPECT_EQ(laidOut(label).size.width, 280);
    EXPECT_EQ(label->asked, 0);
    label->setText("Other words, which may be longer or shorter than the ones before, but have the same room");
    EXPECT_EQ(laidOut(label).size.width, 280);
    EXPECT_EQ(label->asked, 0);
    boxWidth->setPriority(200); // weaker than what the text would like
    EXPECT_EQ(laidOut(label).size.width, 320);
    EXPECT_GT(label->asked, 0);
}

TEST_F(UIViewLayoutTest, ConflictsAndOpenPlacesAreReportedOnce) {
    std::vector<std::string> reports;
    setLayoutReportObserver([&](const std::string& text, const NSObject&) { reports.push_back(text); });
    const View view = addConstrained();
    tieEdges(view, window);
    fix(view, width, 5)->setIdentifier("width of the box");
    const View loose = addConstrained();
    loose->setAccessibilityIdentifier("loose");
    fix(loose, width, 5);
    window->layoutIfNeeded();
    window->setFrame(CGRectMake(0, 0, 300, 400));
    window->layoutIfNeeded();
    setLayoutReportObserver({});
    EXPECT_THAT(reports, ElementsAre(HasSubstr("layout conflict: width of the box"),
                                     HasSubstr("\"loose\" has no definite x, y, height")));
}

using UIViewLayoutDeathTest = UIViewLayoutTest;

TEST_F(UIViewLayoutDeathTest, AConstraintBetweenTreesStopsTheProgram) {
    const View here = addConstrained();
    const auto elsewhere = std::make_shared<UIView>();
    const auto constraint = here->leftAnchor().constraintEqualToAnchor(elsewhere->leftAnchor());
    constraint->setIdentifier("bridge");
    EXPECT_DEATH(constraint->setActive(true), "\"bridge\": its views have no common ancestor");
}

} // namespace
