#include "platform/layout/LayoutSystem.h"

#include "tests/layout/LayoutFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The layout is whole: nothing contradicts, nothing is left open.
void expectDetermined(const LayoutFixture& layout) {
    EXPECT_THAT(layout.conflicts(), IsEmpty());
    EXPECT_THAT(layout.ambiguities(), IsEmpty());
}

TEST(LayoutSystemTest, ChainOfEqualWidthsSharesTheRow) {
    const LayoutFixture layout(R"(
        item root frame 0 0 320 100
        item a
        item b
        item c
        a.leading = root.leading + 10
        b.leading = a.trailing + 5
        c.leading = b.trailing + 5
        c.trailing = root.trailing - 10
        a.width = b.width
        b.width = c.width
        a.top = root.top
        b.top = root.top
        c.top = root.top
        a.bottom = root.bottom
        b.height = 0.5 * a.height
        c.height = 0.5 * b.height + 3
    )");
    EXPECT_EQ(layout.frame("a"), "10 0 96.667 100");
    EXPECT_EQ(layout.frame("b"), "111.667 0 96.667 50");
    EXPECT_EQ(layout.frame("c"), "213.333 0 96.667 28");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, AspectRatioTiesTheAxesAndCentreFollows) {
    const LayoutFixture layout(R"(
        item root frame 20 40 200 100
        item image
        image.centerX = root.centerX
        image.centerY = root.centerY
        image.height = 0.8 * root.height
        image.width = 1.5 * image.height
    )");
    EXPECT_EQ(layout.frame("image"), "60 50 120 80");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, FixedFramesNestInTheirParents) {
    const LayoutFixture layout(R"(
        item window frame 0 0 320 480
        item panel in window frame 10 20 100 200
        item button in panel frame 5 6 30 40
        item hint
        hint.left = button.right
        hint.top = button.bottom
        hint.right = window.right
        hint.bottom = panel.bottom
    )");
    EXPECT_EQ(layout.frame("button"), "15 26 30 40");
    EXPECT_EQ(layout.frame("hint"), "45 66 275 154");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, BaselinesLineUpAndFallBackToTheBottomEdge) {
    const LayoutFixture layout(R"(
        item root frame 0 0 320 100
        item title size 80 30 baseline 24
        item detail size 40 16 baseline 12
        item icon size 20 20
        title.left = root.left
        title.top = root.top + 10
        detail.left = title.right
        detail.firstBaseline = title.lastBaseline
        icon.left = detail.right
        icon.lastBaseline = title.firstBaseline
    )");
    EXPECT_EQ(layout.frame("detail"), "80 22 40 16");
    EXPECT_EQ(layout.frame("icon"), "120 14 20 20");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, InequalitiesLimitWhatLowerPrioritiesWant) {
    const LayoutFixture layout(R"(
        item root frame 0 0 600 100
        item column
        column.centerX = root.centerX
        column.width <= 400
        column.width = root.width @999
        column.top = root.top
        column.bottom <= root.bottom - 20
        column.height = 500 @10
    )");
    EXPECT_EQ(layout.frame("column"), "100 0 400 80");
    expectDetermined(layout);
}

/// Two labels in a row that is too wide or too narrow for both.
std::string labelRow(const std::string& width, const std::string& a, const std::string& b) {
    return "item root frame 0 0 " + width + " 20\nitem a size 100 20 " + a + "\nitem b size 60 20 " + b + R"(
        a.left = root.left
        b.left = a.right + 10
        b.right = root.right
        a.top = root.top
        b.top = root.top
    )";
}

TEST(LayoutSystemTest, LabelThatHugsLessTakesTheRoomLeftOver) {
    const LayoutFixture layout(labelRow("300", "hug 250", "hug 251"));
    EXPECT_EQ(layout.frame("a"), "0 0 230 20");
    EXPECT_EQ(layout.frame("b"), "240 0 60 20");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, LabelThatResistsLessIsCompressed) {
    const LayoutFixture layout(labelRow("120", "resist 749", "resist 750"));
    EXPECT_EQ(layout.frame("a"), "0 0 50 20");
    EXPECT_EQ(layout.frame("b"), "60 0 60 20");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, CompressionStopsAtZeroAndThenTheOtherLabelGives) {
    const LayoutFixture layout(labelRow("40", "resist 749", "resist 750"));
    EXPECT_EQ(layout.frame("a"), "0 0 0 20");
    EXPECT_EQ(layout.frame("b"), "10 0 30 20");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, EqualLabelsAreAmbiguousInWidthButNotInHeight) {
    const LayoutFixture layout(labelRow("300", "", ""));
    EXPECT_THAT(layout.ambiguities(), ElementsAre("a: width", "b: x width"));
    EXPECT_EQ(layout.frame("root"), "0 0 300 20");
    // Whichever label gives, the row is full.
    const CGRect& b = layout.result().frames[2];
    EXPECT_DOUBLE_EQ(b.maxX(), 300);
    EXPECT_DOUBLE_EQ(layout.result().frames[1].maxX() + 10, b.minX());
}

TEST(LayoutSystemTest, EqualLabelsThatFitExactlyAreNotAmbiguous) {
    const LayoutFixture layout(labelRow("170", "", ""));
    EXPECT_EQ(layout.frame("a"), "0 0 100 20");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, HigherPriorityIsNeverGivenUpForManyLowerOnes) {
    std::string text = "item root frame 0 0 100 100\nitem a in root\na.left = 0\na.top = 0\na.height = 1\n"
                       "a.width = 10 @501\n";
    for (int count = 0; count < 50; ++count)
        text += "a.width = 90 @500\n";
    EXPECT_EQ(LayoutFixture(text).frame("a"), "0 0 10 1");
}

TEST(LayoutSystemTest, WithinOnePriorityTheSumOfViolationsIsLeast) {
    const LayoutFixture layout(R"(
        item a
        a.left = 0
        a.top = 0
        a.height = 1
        a.width = 10 @500
        a.width = 40 @500
        a.width = 90 @500
        a.width = 60 @400
    )");
    EXPECT_EQ(layout.frame("a"), "0 0 40 1");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, LowerPriorityDecidesWhatHigherOnesLeaveOpen) {
    const LayoutFixture layout(R"(
        item a
        a.left = 0
        a.top = 0
        a.height = 1
        a.width = 10 @500
        a.width = 90 @500
        a.width = 60 @400
        a.width = 70 @300
    )");
    EXPECT_EQ(layout.frame("a"), "0 0 60 1");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, ContradictionNamesTheConstraintsInvolvedAndNoOthers) {
    const LayoutFixture layout(R"(
        item root frame 0 0 320 100
        item a
        a.top = root.top
        a.height = 20
        a.left = root.left + 10
        a.right = root.right - 10
        a.width = 50
    )");
    EXPECT_THAT(layout.conflicts(), ElementsAre("a.width = 50: contradicts other required constraints [root frame, "
                                                "a.left = root.left + 10, a.right = root.right - 10]"));
    EXPECT_EQ(layout.frame("a"), "10 0 300 20");
}

TEST(LayoutSystemTest, ContradictingInequalityIsLeftOutAndTheRestStillHolds) {
    const LayoutFixture layout(R"(
        item root frame 0 0 320 100
        item a
        item b
        a.top = root.top
        a.height >= 20
        a.left = root.left
        a.width >= 200
        b.left >= a.right + 50
        b.width >= 100
        b.right <= root.right
        b.top = root.top
        b.height = a.height
        a.height = 30 @500
        a.width = 0 @400
        b.width = 120 @300
        b.left = a.right @200
    )");
    EXPECT_THAT(layout.conflicts(),
                ElementsAre("b.right <= root.right: contradicts other required constraints [root frame, "
                            "a.left = root.left, a.width >= 200, b.left >= a.right + 50, b.width >= 100]"));
    EXPECT_EQ(layout.frame("a"), "0 0 200 30");
    EXPECT_EQ(layout.frame("b"), "250 0 120 30");
}

TEST(LayoutSystemTest, ConstraintThatMakesASizeNegativeIsTheOneLeftOut) {
    const LayoutFixture layout(R"(
        item root frame 0 0 30 100
        item a
        a.top = root.top
        a.bottom = root.bottom
        a.left = root.left + 20
        a.right = root.right - 20
    )");
    EXPECT_THAT(layout.conflicts(), ElementsAre("a.right = root.right - 20: contradicts other required constraints "
                                                "[root frame, a width >= 0, a.left = root.left + 20]"));
    EXPECT_EQ(layout.frame("a"), "20 0 0 100");
}

TEST(LayoutSystemTest, RepeatedConstraintIsNoConflict) {
    const LayoutFixture layout(R"(
        item a
        a.left = 1
        a.left = 1
        a.top = 2
        a.width = 3
        a.width >= 3
        a.width <= 3
        a.height = 4
    )");
    EXPECT_EQ(layout.frame("a"), "1 2 3 4");
    expectDetermined(layout);
}

TEST(LayoutSystemTest, UndeterminedAttributesAreNamed) {
    const LayoutFixture layout(R"(
        item root frame 10 20 320 100
        item placed in root size 40 20
        item sized in root
        item between in root
        placed.centerX = root.centerX
        sized.left = root.left
        sized.top = root.top
        sized.width >= 30
        sized.height = 10
        between.left >= root.left + 5
        between.right <= root.right
        between.width = 50
        between.top = root.top
        between.height = 10
    )");
    EXPECT_THAT(layout.ambiguities(), ElementsAre("placed: y", "sized: width", "between: x"));
    EXPECT_EQ(layout.frame("placed"), "150 20 40 20");
    EXPECT_EQ(layout.frame("sized"), "10 20 30 10");
    EXPECT_EQ(layout.frame("between"), "15 20 50 10");
}

TEST(LayoutSystemTest, InequalitiesThatLeaveOnePointAreNoAmbiguity) {
    const LayoutFixture layout(R"(
        item a
        item b
        a.top = 0
        a.height = 1
        b.top = 0
        b.height = 1
        a.left >= 10
        b.left >= a.right
        b.right <= 30
        a.width >= 12
        b.width >= 8
    )");
    EXPECT_EQ(layout.frame("a"), "10 0 12 1");
    EXPECT_EQ(layout.frame("b"), "22 0 8 1");
    expectDetermined(layout);
}

} // namespace
