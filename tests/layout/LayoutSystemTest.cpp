#include "platform/layout/LayoutSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <regex>
#include <sstream>

namespace {

/// A layout written as lines of text, so that a test reads like the screen it is about:
///     item label size 80 20 hug 251 resist 749 baseline 15 35
///     item root frame 0 0 320 100
///     item child in root frame 5 5 10 10
///     label.left = root.left + 16; label.top = root.top
///     label.width >= 0.5 * root.width - 4 @750
/// A semicolon is a line's end as well. A constraint's name is its line.
class Layout {
public:
    explicit Layout(std::string text) {
        std::replace(text.begin(), text.end(), ';', '\n');
        std::istringstream lines(text);
        for (std::string line; std::getline(lines >> std::ws, line);) {
            line.erase(line.find_last_not_of(' ') + 1);
            line.rfind("item ", 0) == 0 ? addItem(line) : addConstraint(line);
        }
        result = solveLayout(m_items, m_constraints);
    }

    /// "x y width height", rounded to a thousandth of a point.
    [[nodiscard]] std::string frame(const std::string& item) const {
        const auto& [origin, size] = result.frames.at(static_cast<std::size_t>(m_indices.at(item)));
        std::ostringstream text;
        for (const double length : {origin.x, origin.y, size.width, size.height}) {
            text << (text.str().empty() ? "" : " ") << std::round(length * 1000) / 1000 + 0.0;
        }
        return text.str();
    }
    /// One line each: "NAME: REASON, OTHER, OTHER" for what was left out, "NAME: x y width height" for what is free.
    [[nodiscard]] std::vector<std::string> reports() const {
        std::vector<std::string> lines;
        for (const LayoutConflict& conflict : result.conflicts) {
            lines.push_back(conflict.name + ": " + conflict.reason);
            for (const std::string& other : conflict.others) {
                lines.back() += ", " + other;
            }
        }
        for (const auto& [item, name, x, y, width, height] : result.ambiguities) {
            lines.push_back(name + ":" + (x ? " x" : "") + (y ? " y" : "") + (width ? " width" : "") +
                            (height ? " height" : ""));
        }
        return lines;
    }

    LayoutResult result;

private:
    void addItem(const std::string& line) {
        static const std::regex pattern(
            R"(item (\w+)(?: in (\w+))?(?: frame (\S+) (\S+) (\S+) (\S+))?)"
            R"((?: size (\S+) (\S+))?(?: hug (\S+))?(?: resist (\S+))?(?: baseline (\S+) (\S+))?)");
        std::smatch part;
        ASSERT_TRUE(std::regex_match(line, part, pattern)) << line;
        const auto number = [&](int index) { return std::stod(part.str(static_cast<std::size_t>(index))); };
        LayoutItem item;
        item.name = part.str(1);
        item.parent = part[2].matched ? itemNamed(part.str(2)) : -1;
        if (part[3].matched) {
            item.fixedFrame = CGRectMake(number(3), number(4), number(5), number(6));
        }
        if (part[7].matched) {
            item.width.length = number(7);
            item.height.length = number(8);
        }
        item.width.hugging = item.height.hugging = part[9].matched ? number(9) : 250;
        item.width.compressionResistance = item.height.compressionResistance = part[10].matched ? number(10) : 750;
        if (part[11].matched) {
            item.firstBaseline = number(11);
            item.lastBaseline = number(12);
        }
        m_indices[item.name] = static_cast<int>(m_items.size());
        m_items.push_back(item);
    }

    void addConstraint(const std::string& line) {
        static const std::regex pattern(R"((\w+)\.(\w+) (<|=|>)=? (?:(\S+) \* )?(?:([a-z]\w*)\.(\w+))? ?([+-])? ?)"
                                        R"(([-+.\w]+)?(?: @(\S+))?)");
        std::smatch part;
        ASSERT_TRUE(std::regex_match(line, part, pattern)) << line;
        const auto number = [&](std::size_t index, double otherwise) {
            return part[index].matched ? std::stod(part.str(index)) : otherwise;
        };
        const double sign = part.str(7) == "-" ? -1 : 1;
        m_constraints.push_back(
            {itemNamed(part.str(1)), attributeNamed(part.str(2)),
             static_cast<LayoutRelation>(static_cast<int>(std::string("<=>").find(part.str(3))) - 1),
             part[5].matched ? itemNamed(part.str(5)) : -1, attributeNamed(part.str(6)), number(4, 1),
             sign * number(8, 0), number(9, 1000), line});
    }

    [[nodiscard]] int itemNamed(const std::string& name) const {
        const auto found = m_indices.find(name);
        return found == m_indices.end() ? 999 : found->second;
    }

    static LayoutAttribute attributeNamed(const std::string& name) {
        const std::string names = "left right top bottom leading trailing width height centerX centerY firstBaseline "
                                  "lastBaseline ";
        const auto before = names.begin() + static_cast<std::ptrdiff_t>(std::min(names.size(), names.find(name + " ")));
        return static_cast<LayoutAttribute>(std::count(names.begin(), before, ' '));
    }

    std::map<std::string, int> m_indices;
    std::vector<LayoutItem> m_items;
    std::vector<LayoutConstraint> m_constraints;
};

/// A layout and what it must come to; what is not named here neither contradicts nor stays open.
struct Screen {
    const char* name;
    std::string layout;
    std::vector<std::pair<std::string, std::string>> frames;
    std::vector<std::string> reports{};
};

std::ostream& operator<<(std::ostream& out, const Screen& screen) {
    return out << screen.layout;
}

class LayoutSystemTest : public testing::TestWithParam<Screen> {};

TEST_P(LayoutSystemTest, IsLaidOut) {
    const Layout layout(GetParam().layout);
    for (const auto& [item, frame] : GetParam().frames) {
        EXPECT_EQ(layout.frame(item), frame) << item;
    }
    EXPECT_THAT(layout.reports(), testing::ElementsAreArray(GetParam().reports));
}

/// Two labels in a row that is too wide or too narrow for both.
std::string labelRow(const std::string& width, const std::string& a, const std::string& b) {
    return "item root frame 0 0 " + width + " 20; item a size 100 20 " + a + "; item b size 60 20 " + b + R"(
        a.left = root.left; b.left = a.right + 10; b.right = root.right; a.top = root.top; b.top = root.top)";
}

std::string repeated(const std::string& line, int count) {
    return count == 0 ? "" : line + repeated(line, count - 1);
}

enum class Below { oneAnother, root };

/// Labels, each a little wider than the one before.
std::string labels(int count, Below below) {
    std::string text = "item root frame 0 0 320 9999";
    for (int row = 0; row < count; ++row) {
        const std::string name = "r" + std::to_string(row);
        const std::string above = row > 0 ? "r" + std::to_string(row - 1) + ".bottom + 4" : "root.top + 4";
        text += ";item " + name + " size " + std::to_string(100 + row * 2) + " 20;" + name +
                ".top = " + (below == Below::root ? "root.top + " + std::to_string(24 * row) : above) + ";" + name +
                ".left = root.left + 16;" + name + ".right <= root.right - 16";
    }
    return text;
}

/// How much more work the solver has with 200 labels than with 20, the last of which is constrained further.
double growth(Below below, const std::string& last) {
    const auto work = [&](int count) {
        const std::string end = ";r" + std::to_string(count - 1) + last;
        return static_cast<double>(Layout(labels(count, below) + end).result.work);
    };
    return work(200) / work(20);
}

TEST(LayoutCostTest, LabelsThatHaveNothingToDoWithEachOtherCostWhatEachCosts) {
    EXPECT_LT(growth(Below::root, ".height = 20"), 10.1);
    EXPECT_LT(growth(Below::root, ".height = 20;r0.width = 500"), 10.1) << "a contradiction";
}

TEST(LayoutCostTest, AChainCostsLessThanTheCubeOfItsLength) {
    EXPECT_LT(growth(Below::oneAnother, ".height = 20"), 60);
    EXPECT_LT(growth(Below::oneAnother, ".bottom = root.bottom"), 120);
}

TEST(LayoutOddInputTest, HugeNumbersGiveFiniteFrames) {
    const Layout layout(R"(
        item root frame 0 0 1e300 100; item a size 1e300 1e-300; item b
        a.left = root.left; a.right <= 1e300; a.top = -1e300 * b.height + 1e300
        a.width = 1e300 * b.width + 1e300 @999; b.width = 1e300 * a.height
        b.left = a.right; b.right = root.right @300; b.top = 1e300 * a.top)");
    for (const auto& [origin, size] : layout.result.frames) {
        EXPECT_TRUE(std::isfinite(origin.x + origin.y + size.width + size.height));
        EXPECT_GE(size.width, 0);
    }
}

TEST(LayoutOddInputTest, ParentsInACircleEndInAReport) {
    const std::vector<LayoutItem> items{{.name = "a", .parent = 1, .fixedFrame = CGRectMake(1, 2, 3, 4)},
                                        {.name = "b", .parent = 0, .fixedFrame = CGRectMake(5, 6, 7, 8)}};
    const LayoutResult result = solveLayout(items, {});
    EXPECT_EQ(result.conflicts.size(), 2U);
    EXPECT_EQ(result.frames[1].size, (CGSize{7, 8}));
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
    {"FixedFramesNestInTheirParents",
     R"(item window frame 0 0 320 480; item panel in window frame 10 20 100 200
        item button in panel frame 5 6 30 40; item hint
        hint.left = button.right; hint.top = button.bottom; hint.right = window.right; hint.bottom = panel.bottom)",
     {{"button", "15 26 30 40"}, {"hint", "45 66 275 154"}}},
    {"BaselinesLineUpAndFallBackToTheBottomEdge",
     R"(item root frame 0 0 320 100
        item title size 80 30 baseline 10 24; item detail size 40 16 baseline 12 14; item icon size 20 20
        title.left = root.left; title.top = root.top + 10
        detail.left = title.right; detail.firstBaseline = title.lastBaseline
        icon.left = detail.right; icon.lastBaseline = title.firstBaseline)",
     {{"detail", "80 22 40 16"}, {"icon", "120 0 20 20"}}},
    {"LabelThatHugsLessTakesTheRoomLeftOver",
     labelRow("300", "hug 250", "hug 251"),
     {{"a", "0 0 230 20"}, {"b", "240 0 60 20"}}},
    {"CompressionStopsAtZeroAndThenTheOtherLabelGives",
     labelRow("40", "resist 749", "resist 750"),
     {{"a", "0 0 0 20"}, {"b", "10 0 30 20"}}},
    {"EqualLabelsAreAmbiguousInWidthButNotInHeight", labelRow("300", "", ""), {}, {"a: width", "b: x width"}},
    {"HigherPriorityIsNeverGivenUpForManyLowerOnes",
     "item a; a.left = 0; a.top = 0; a.height = 1; a.width = 10 @501;" + repeated("a.width = 90 @500;", 50),
     {{"a", "0 0 10 1"}}},
    {"LowerPriorityDecidesWhatHigherOnesLeaveOpen",
     R"(item a; a.left = 0; a.top = 0; a.height = 1
        a.width = 10 @500; a.width = 90 @500; a.width = 60 @400; a.width = 70 @300)",
     {{"a", "0 0 60 1"}}},
    {"ContradictionNamesTheConstraintsInvolvedAndNoOthers",
     R"(item root frame 0 0 320 100; item a; a.top = root.top; a.height = 20
        a.left = 10; a.right = root.right - 10; a.width = 50)",
     {{"a", "10 0 300 20"}},
     {"a.width = 50" + contradicts + "root frame, a.left = 10, a.right = root.right - 10"}},
    {"ConstraintThatMakesASizeNegativeIsTheOneLeftOut",
     R"(item root frame 0 0 30 100; item a; a.top = root.top; a.bottom = root.bottom
        a.left = root.left + 20; a.right = root.right - 20)",
     {{"a", "20 0 0 100"}},
     {"a.right = root.right - 20" + contradicts + "root frame, a width >= 0, a.left = root.left + 20", "a: width"}},
    {"UndeterminedAttributesAreNamed",
     R"(item root frame 10 20 320 100; item placed in root size 40 20; item sized in root; item between in root
        placed.centerX = root.centerX
        sized.left = root.left; sized.top = root.top; sized.width >= 30; sized.height = 10
        between.left >= root.left + 5; between.right <= root.right; between.width = 50
        between.top = root.top; between.height = 10)",
     {{"placed", "150 20 40 20"}, {"sized", "10 20 30 10"}, {"between", "15 20 50 10"}},
     {"placed: y", "sized: width", "between: x"}},
    {"OpenSizesAreZeroAndOnlyThenArePositions",
     "item a; a.right = 100; a.top = 3; a.height = 4; item b frame 0 0 -5 7",
     {{"a", "100 3 0 4"}, {"b", "0 0 0 7"}},
     {"a: x width"}},
    {"LongListOfLabels", labels(200, Below::oneAnother), {{"r10", "16 244 120 20"}, {"r199", "16 4780 288 20"}}},
    {"NamesOfNothingAreReportedAndIgnored",
     "item a frame 1 2 3 4; ghost.left = 5; a.left = ghost.right; a.depth = 6",
     {{"a", "1 2 3 4"}},
     {"ghost.left = 5: names an item that does not exist", "a.left = ghost.right: names an item that does not exist",
      "a.depth = 6: names no attribute"}},
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
