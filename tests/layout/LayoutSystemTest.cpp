#include "platform/layout/LayoutSystem.h"

#include "tests/layout/LayoutFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

/// A layout and what it must come to; what is not named here neither contradicts nor stays open.
struct Screen {
    const char* name;
    std::string layout;
    std::vector<std::pair<std::string, std::string>> frames;
    std::vector<std::string> conflicts{};
    std::vector<std::string> ambiguities{};
};

std::ostream& operator<<(std::ostream& out, const Screen& screen) {
    return out << screen.layout;
}

class LayoutSystemTest : public testing::TestWithParam<Screen> {};

TEST_P(LayoutSystemTest, IsLaidOut) {
    const LayoutFixture layout(GetParam().layout);
    for (const auto& [item, frame] : GetParam().frames)
        EXPECT_EQ(layout.frame(item), frame) << item;
    EXPECT_THAT(layout.conflicts(), testing::ElementsAreArray(GetParam().conflicts));
    EXPECT_THAT(layout.ambiguities(), testing::ElementsAreArray(GetParam().ambiguities));
}

/// Two labels in a row that is too wide or too narrow for both.
std::string labelRow(const std::string& width, const std::string& a, const std::string& b) {
    return "item root frame 0 0 " + width + " 20; item a size 100 20 " + a + "; item b size 60 20 " + b + R"(
        a.left = root.left; b.left = a.right + 10; b.right = root.right
        a.top = root.top; b.top = root.top
    )";
}

std::string repeated(const std::string& line, int count) {
    return count == 0 ? "" : line + repeated(line, count - 1);
}

/// Labels below each other, each a little wider than the one above.
std::string longList(int count) {
    std::string text = "item root frame 0 0 320 9999\n";
    for (int row = 0; row < count; ++row) {
        const std::string name = "r" + std::to_string(row);
        const std::string above = row == 0 ? "root.top" : "r" + std::to_string(row - 1) + ".bottom";
        text += "item " + name + " size " + std::to_string(100 + row * 2) + " 20\n";
        text += name + ".top = " + above + " + 4;" + name + ".left = root.left + 16\n";
        text += name + ".right <= root.right - 16;" + name + ".height >= 24\n";
    }
    return text;
}

const std::string contradicts = ": contradicts other required constraints, ";

const std::vector<Screen> screens{
    {"ChainOfEqualWidthsSharesTheRow",
     R"(item root frame 0 0 320 100; item a; item b; item c
        a.leading = root.leading + 10; b.leading = a.trailing + 5
        c.leading = b.trailing + 5; c.trailing = root.trailing - 10
        a.width = b.width; b.width = c.width
        a.top = root.top; b.top = root.top; c.top = root.top
        a.bottom = root.bottom; b.height = 0.5 * a.height; c.height = 0.5 * b.height + 3)",
     {{"a", "10 0 96.667 100"}, {"b", "111.667 0 96.667 50"}, {"c", "213.333 0 96.667 28"}}},
    {"AspectRatioTiesTheAxesAndCentreFollows",
     R"(item root frame 20 40 200 100; item image
        image.centerX = root.centerX; image.centerY = root.centerY
        image.height = 0.8 * root.height; image.width = 1.5 * image.height)",
     {{"image", "60 50 120 80"}}},
    {"FixedFramesNestInTheirParents",
     R"(item window frame 0 0 320 480; item panel in window frame 10 20 100 200
        item button in panel frame 5 6 30 40; item hint
        hint.left = button.right; hint.top = button.bottom; hint.right = window.right; hint.bottom = panel.bottom)",
     {{"button", "15 26 30 40"}, {"hint", "45 66 275 154"}}},
    {"BaselinesLineUpAndFallBackToTheBottomEdge",
     R"(item root frame 0 0 320 100
        item title size 80 30 baseline 24; item detail size 40 16 baseline 12; item icon size 20 20
        title.left = root.left; title.top = root.top + 10
        detail.left = title.right; detail.firstBaseline = title.lastBaseline
        icon.left = detail.right; icon.lastBaseline = title.firstBaseline)",
     {{"detail", "80 22 40 16"}, {"icon", "120 14 20 20"}}},
    {"InequalitiesLimitWhatLowerPrioritiesWant",
     R"(item root frame 0 0 600 100; item column
        column.centerX = root.centerX; column.width <= 400; column.width = root.width @999
        column.top = root.top; column.bottom <= root.bottom - 20; column.height = 500 @10)",
     {{"column", "100 0 400 80"}}},
    {"LabelThatHugsLessTakesTheRoomLeftOver",
     labelRow("300", "hug 250", "hug 251"),
     {{"a", "0 0 230 20"}, {"b", "240 0 60 20"}}},
    {"LabelThatResistsLessIsCompressed",
     labelRow("120", "resist 749", "resist 750"),
     {{"a", "0 0 50 20"}, {"b", "60 0 60 20"}}},
    {"CompressionStopsAtZeroAndThenTheOtherLabelGives",
     labelRow("40", "resist 749", "resist 750"),
     {{"a", "0 0 0 20"}, {"b", "10 0 30 20"}}},
    {"EqualLabelsAreAmbiguousInWidthButNotInHeight", labelRow("300", "", ""), {}, {}, {"a: width", "b: x width"}},
    {"EqualLabelsThatFitExactlyAreNotAmbiguous", labelRow("170", "", ""), {{"a", "0 0 100 20"}}},
    {"HigherPriorityIsNeverGivenUpForManyLowerOnes",
     "item a; a.left = 0; a.top = 0; a.height = 1; a.width = 10 @501;" + repeated("a.width = 90 @500;", 50),
     {{"a", "0 0 10 1"}}},
    {"WithinOnePriorityTheSumOfViolationsIsLeast",
     R"(item a; a.left = 0; a.top = 0; a.height = 1
        a.width = 10 @500; a.width = 40 @500; a.width = 90 @500; a.width = 60 @400)",
     {{"a", "0 0 40 1"}}},
    {"LowerPriorityDecidesWhatHigherOnesLeaveOpen",
     R"(item a; a.left = 0; a.top = 0; a.height = 1
        a.width = 10 @500; a.width = 90 @500; a.width = 60 @400; a.width = 70 @300)",
     {{"a", "0 0 60 1"}}},
    {"ContradictionNamesTheConstraintsInvolvedAndNoOthers",
     R"(item root frame 0 0 320 100; item a; a.top = root.top; a.height = 20
        a.left = root.left + 10; a.right = root.right - 10; a.width = 50)",
     {{"a", "10 0 300 20"}},
     {"a.width = 50" + contradicts + "root frame, a.left = root.left + 10, a.right = root.right - 10"}},
    {"ContradictingInequalityIsLeftOutAndTheRestStillHolds",
     R"(item root frame 0 0 320 100; item a; item b
        a.top = root.top; a.height >= 20; a.left = root.left; a.width >= 200
        b.left >= a.right + 50; b.width >= 100; b.right <= root.right; b.top = root.top; b.height = a.height
        a.height = 30 @500; a.width = 0 @400; b.width = 120 @300; b.left = a.right @200)",
     {{"a", "0 0 200 30"}, {"b", "250 0 120 30"}},
     {"b.right <= root.right" + contradicts +
      "root frame, a.left = root.left, a.width >= 200, b.left >= a.right + 50, b.width >= 100"}},
    {"ConstraintThatMakesASizeNegativeIsTheOneLeftOut",
     R"(item root frame 0 0 30 100; item a; a.top = root.top; a.bottom = root.bottom
        a.left = root.left + 20; a.right = root.right - 20)",
     {{"a", "20 0 0 100"}},
     {"a.right = root.right - 20" + contradicts + "root frame, a width >= 0, a.left = root.left + 20"},
     {"a: width"}},
    {"RepeatedConstraintIsNoConflict",
     "item a; a.left = 1; a.left = 1; a.top = 2; a.width = 3; a.width >= 3; a.width <= 3; a.height = 4",
     {{"a", "1 2 3 4"}}},
    {"UndeterminedAttributesAreNamed",
     R"(item root frame 10 20 320 100; item placed in root size 40 20; item sized in root; item between in root
        placed.centerX = root.centerX
        sized.left = root.left; sized.top = root.top; sized.width >= 30; sized.height = 10
        between.left >= root.left + 5; between.right <= root.right; between.width = 50
        between.top = root.top; between.height = 10)",
     {{"placed", "150 20 40 20"}, {"sized", "10 20 30 10"}, {"between", "15 20 50 10"}},
     {},
     {"placed: y", "sized: width", "between: x"}},
    {"InequalitiesThatLeaveOnePointAreNoAmbiguity",
     R"(item a; item b; a.top = 0; a.height = 1; b.top = 0; b.height = 1
        a.left >= 10; b.left >= a.right; b.right <= 30; a.width >= 12; b.width >= 8)",
     {{"a", "10 0 12 1"}, {"b", "22 0 8 1"}}},
    {"LongListOfLabels", longList(200), {{"r10", "16 284 120 24"}, {"r199", "16 5576 288 24"}}},
    {"NumbersThatAreNoneAreReportedAndIgnored",
     R"(item root frame 0 0 320 100; item broken frame nan 0 10 10; item sized size inf 20
        broken.left = root.left; broken.top = root.top; broken.width = 5; broken.height = 6
        broken.width = nan @900; broken.width = inf
        sized.left = root.left; sized.top = root.top; sized.width = 30)",
     {{"broken", "0 0 5 6"}, {"sized", "0 0 30 20"}},
     {"broken frame: not a finite number", "sized intrinsic size: not a finite number",
      "broken.width = nan @900: not a finite number", "broken.width = inf: not a finite number"}},
};

INSTANTIATE_TEST_SUITE_P(Screens, LayoutSystemTest, testing::ValuesIn(screens),
                         [](const auto& screen) { return screen.param.name; });

} // namespace
