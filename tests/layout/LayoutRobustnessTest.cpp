#include "platform/layout/LayoutSystem.h"

#include "tests/layout/LayoutFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <random>

namespace {

using testing::ElementsAre;

double valueOf(const CGRect& frame, LayoutAttribute attribute) {
    switch (attribute) {
    case LayoutAttribute::left:
        return frame.minX();
    case LayoutAttribute::right:
        return frame.maxX();
    case LayoutAttribute::top:
        return frame.minY();
    case LayoutAttribute::bottom:
        return frame.maxY();
    case LayoutAttribute::width:
        return frame.size.width;
    case LayoutAttribute::height:
        return frame.size.height;
    case LayoutAttribute::centerX:
        return frame.midX();
    default:
        return frame.midY();
    }
}

/// How far first - (multiplier * second + constant) is on the wrong side.
double violation(const LayoutConstraint& constraint, const std::vector<CGRect>& frames) {
    double difference = valueOf(frames[static_cast<std::size_t>(constraint.first)], constraint.firstAttribute);
    if (constraint.second >= 0) {
        difference -= constraint.multiplier *
                      valueOf(frames[static_cast<std::size_t>(constraint.second)], constraint.secondAttribute);
    }
    difference -= constraint.constant;
    if (constraint.relation == LayoutRelation::equal)
        return std::abs(difference);
    return std::max(0.0, constraint.relation == LayoutRelation::lessThanOrEqual ? difference : -difference);
}

/// Random frames, and constraints that all hold for them: a system that has an answer.
class RandomSystem {
public:
    explicit RandomSystem(unsigned seed) : m_random(seed) {
        const int itemCount = 2 + number(8);
        for (int item = 0; item < itemCount; ++item) {
            m_items.push_back({.name = "item " + std::to_string(item)});
            m_frames.push_back(CGRectMake(number(300), number(300), number(100), number(100)));
            if (number(3) == 0)
                m_items.back().intrinsicWidth = number(150);
        }
        const int constraintCount = 10 + number(40);
        for (int count = 0; count < constraintCount; ++count)
            addConstraint();
    }

    [[nodiscard]] const std::vector<LayoutItem>& items() const { return m_items; }
    [[nodiscard]] const std::vector<LayoutConstraint>& constraints() const { return m_constraints; }

private:
    int number(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }

    void addConstraint() {
        static constexpr LayoutAttribute attributes[2][4] = {
            {LayoutAttribute::left, LayoutAttribute::right, LayoutAttribute::width, LayoutAttribute::centerX},
            {LayoutAttribute::top, LayoutAttribute::bottom, LayoutAttribute::height, LayoutAttribute::centerY}};
        const auto& axis = attributes[number(2)];
        LayoutConstraint constraint;
        constraint.first = number(static_cast<int>(m_items.size()));
        constraint.firstAttribute = axis[number(4)];
        constraint.second = number(static_cast<int>(m_items.size()) + 1) - 1;
        constraint.secondAttribute = axis[number(4)];
        constraint.multiplier = number(4) == 0 ? 0.25 * (1 + number(12)) : 1;
        constraint.relation = static_cast<LayoutRelation>(number(3) - 1);
        constraint.priority = number(3) == 0 ? 1 + number(999) : 1000;
        constraint.name = "constraint " + std::to_string(m_constraints.size());
        const double first = valueOf(m_frames[static_cast<std::size_t>(constraint.first)], constraint.firstAttribute);
        if (constraint.second >= 0) {
            constraint.constant =
                first - constraint.multiplier *
                            valueOf(m_frames[static_cast<std::size_t>(constraint.second)], constraint.secondAttribute);
        } else {
            constraint.constant = first;
        }
        constraint.constant -= static_cast<int>(constraint.relation) * number(30);
        if (constraint.priority < 1000)
            constraint.constant += number(200) - 100;
        m_constraints.push_back(constraint);
    }

    std::mt19937 m_random;
    std::vector<LayoutItem> m_items;
    std::vector<CGRect> m_frames;
    std::vector<LayoutConstraint> m_constraints;
};

TEST(LayoutRobustnessTest, RequiredConstraintsHoldInEveryFeasibleSystem) {
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        const RandomSystem system(seed);
        const LayoutResult result = solveLayout(system.items(), system.constraints());
        ASSERT_TRUE(result.conflicts.empty()) << result.conflicts.front().name;
        for (const LayoutConstraint& constraint : system.constraints()) {
            if (constraint.priority >= 1000) {
                ASSERT_LT(violation(constraint, result.frames), 1e-6);
            }
        }
    }
}

/// Pins every item to the frame it was given, one attribute after the other: what was called free must be able to
/// move, what was not called free must not.
TEST(LayoutRobustnessTest, AmbiguityIsReportedExactlyWhereAnAttributeCanMove) {
    constexpr LayoutAttribute attributes[] = {LayoutAttribute::left, LayoutAttribute::top, LayoutAttribute::width,
                                              LayoutAttribute::height};
    for (unsigned seed = 0; seed < 60; ++seed) {
        const RandomSystem system(seed);
        const LayoutResult result = solveLayout(system.items(), system.constraints());
        for (std::size_t item = 0; item < system.items().size(); ++item) {
            LayoutAmbiguity reported;
            for (const LayoutAmbiguity& ambiguity : result.ambiguities) {
                if (ambiguity.item == static_cast<int>(item))
                    reported = ambiguity;
            }
            const bool isFree[] = {reported.x, reported.y, reported.width, reported.height};
            for (std::size_t which = 0; which < 4; ++which) {
                SCOPED_TRACE("seed " + std::to_string(seed) + " item " + std::to_string(item) + " attribute " +
                             std::to_string(which));
                const double before = valueOf(result.frames[item], attributes[which]);
                bool moved = false;
                for (const double push : {-1e4, 1e4}) {
                    std::vector<LayoutConstraint> constraints = system.constraints();
                    // Below every priority there is: it can only choose among equally good answers.
                    constraints.push_back({.first = static_cast<int>(item),
                                           .firstAttribute = attributes[which],
                                           .constant = push,
                                           .priority = 0.5});
                    const LayoutResult pushed = solveLayout(system.items(), constraints);
                    moved = moved || std::abs(valueOf(pushed.frames[item], attributes[which]) - before) > 1e-4;
                }
                ASSERT_EQ(moved, isFree[which]);
            }
        }
    }
}

TEST(LayoutRobustnessTest, OneHigherWishIsWorthMoreThanAllLowerOnesInEverySystem) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        const RandomSystem system(seed);
        std::vector<LayoutConstraint> upper;
        for (const LayoutConstraint& constraint : system.constraints()) {
            if (constraint.priority > 750)
                upper.push_back(constraint);
        }
        std::vector<LayoutItem> items = system.items();
        for (LayoutItem& item : items)
            item.intrinsicWidth.reset();
        const auto cost = [&upper](const LayoutResult& result) {
            std::map<double, double> sums;
            for (const LayoutConstraint& constraint : upper)
                sums[-constraint.priority] += violation(constraint, result.frames);
            return sums;
        };
        const auto alone = cost(solveLayout(items, upper));
        const auto together = cost(solveLayout(items, system.constraints()));
        for (const auto& [priority, sum] : alone)
            ASSERT_NEAR(sum, together.at(priority), 1e-4) << "priority " << -priority;
    }
}

/// Takes a system that has an answer and moves some of its required constraints.
std::vector<LayoutConstraint> spoiled(const RandomSystem& system, unsigned seed) {
    std::vector<LayoutConstraint> constraints = system.constraints();
    std::mt19937 random(seed);
    for (int count = 0; count < 4; ++count)
        constraints[random() % constraints.size()].constant += static_cast<double>(random() % 400) - 200;
    return constraints;
}

TEST(LayoutRobustnessTest, WhatIsNotReportedHoldsInEverySystemThatContradictsItself) {
    std::size_t conflicts = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        const RandomSystem system(seed);
        const std::vector<LayoutConstraint> constraints = spoiled(system, seed);
        const LayoutResult result = solveLayout(system.items(), constraints);
        conflicts += result.conflicts.size();
        std::vector<bool> isLeftOut(constraints.size(), false);
        for (const LayoutConflict& conflict : result.conflicts)
            isLeftOut.at(static_cast<std::size_t>(conflict.constraint)) = true;
        for (std::size_t index = 0; index < constraints.size(); ++index) {
            if (constraints[index].priority >= 1000 && !isLeftOut[index]) {
                ASSERT_LT(violation(constraints[index], result.frames), 1e-6) << constraints[index].name;
            }
        }
    }
    EXPECT_GT(conflicts, 100U);
}

TEST(LayoutRobustnessTest, ConflictNamesConstraintsThatContradictEachOtherAndNoneThatIsNeedless) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        const RandomSystem system(seed);
        const std::vector<LayoutConstraint> constraints = spoiled(system, seed);
        const LayoutResult result = solveLayout(system.items(), constraints);
        for (const LayoutConflict& conflict : result.conflicts) {
            SCOPED_TRACE("seed " + std::to_string(seed) + " " + conflict.name);
            std::vector<LayoutConstraint> involved;
            for (const LayoutConstraint& constraint : constraints) {
                const auto& others = conflict.others;
                if (constraint.name == conflict.name ||
                    std::find(others.begin(), others.end(), constraint.name) != others.end())
                    involved.push_back(constraint);
            }
            ASSERT_GE(solveLayout(system.items(), involved).conflicts.size(), 1U);
            // Fewer of them may only contradict each other for another reason, a size below zero.
            for (std::size_t index = 0; index < involved.size() && result.conflicts.size() == 1; ++index) {
                std::vector<LayoutConstraint> rest = involved;
                rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(index));
                for (const LayoutConflict& smaller : solveLayout(system.items(), rest).conflicts)
                    ASSERT_THAT(conflict.others, testing::Not(testing::IsSupersetOf(smaller.others)));
            }
        }
    }
}

TEST(LayoutRobustnessTest, NumbersThatAreNoneAreReportedAndIgnored) {
    const LayoutFixture layout(R"(
        item root frame 0 0 320 100
        item broken frame nan 0 10 10
        item sized size inf 20
        broken.left = root.left
        broken.top = root.top
        broken.width = 5
        broken.height = 6
        broken.width = nan @900
        broken.width = inf
        sized.left = root.left
        sized.top = root.top
        sized.width = 30
    )");
    EXPECT_THAT(layout.conflicts(),
                ElementsAre("broken frame: not a finite number", "sized intrinsic size: not a finite number",
                            "broken.width = nan @900: not a finite number", "broken.width = inf: not a finite number"));
    EXPECT_EQ(layout.frame("broken"), "0 0 5 6");
    EXPECT_EQ(layout.frame("sized"), "0 0 30 20");
}

TEST(LayoutRobustnessTest, IndicesThatNameNothingAreReportedAndIgnored) {
    const std::vector<LayoutItem> items{{.name = "a", .parent = 7, .fixedFrame = CGRectMake(1, 2, 3, 4)}};
    const LayoutResult result =
        solveLayout(items, {{.first = 5, .firstAttribute = LayoutAttribute::left, .name = "first"},
                            {.first = 0, .firstAttribute = LayoutAttribute::left, .second = 1, .name = "second"},
                            {.first = 0, .name = "third"}});
    ASSERT_EQ(result.conflicts.size(), 3U);
    EXPECT_EQ(result.conflicts[1].name, "second");
    EXPECT_EQ(result.conflicts[2].reason, "names no attribute");
    EXPECT_EQ(result.frames[0], CGRectMake(1, 2, 3, 4));
}

TEST(LayoutRobustnessTest, ParentsInACircleEnd) {
    const std::vector<LayoutItem> items{{.name = "a", .parent = 1, .fixedFrame = CGRectMake(1, 2, 3, 4)},
                                        {.name = "b", .parent = 0, .fixedFrame = CGRectMake(5, 6, 7, 8)}};
    const LayoutResult result = solveLayout(items, {});
    EXPECT_EQ(result.conflicts.size(), 2U);
    EXPECT_EQ(result.frames[1].size, (CGSize{7, 8}));
}

TEST(LayoutRobustnessTest, HugeNumbersGiveFiniteFrames) {
    const LayoutFixture layout(R"(
        item root frame 0 0 1e300 100
        item a size 1e300 1e-300
        item b
        a.left = root.left
        a.right <= 1e300
        a.width = 1e300 * b.width + 1e300 @999
        b.width = 1e300 * a.height
        b.left = a.right
        b.right = root.right @300
        b.top = 1e300 * a.top
        a.top = -1e300 * b.height + 1e300
    )");
    for (const CGRect& frame : layout.result().frames) {
        EXPECT_TRUE(std::isfinite(frame.minX() + frame.minY() + frame.size.width + frame.size.height));
        EXPECT_GE(frame.size.width, 0);
    }
}

TEST(LayoutRobustnessTest, LongListOfLabelsIsSolved) {
    std::string text = "item root frame 0 0 320 9999\n";
    const int count = 200;
    for (int row = 0; row < count; ++row) {
        const std::string name = "r" + std::to_string(row);
        const std::string above = row == 0 ? "root.top" : "r" + std::to_string(row - 1) + ".bottom";
        text += "item " + name + " size " + std::to_string(100 + row * 2) + " 20\n";
        text += name + ".top = " + above + " + 4\n" + name + ".left = root.left + 16\n";
        text += name + ".right <= root.right - 16\n" + name + ".height >= 24\n";
    }
    const LayoutFixture layout(text);
    EXPECT_EQ(layout.frame("r10"), "16 284 120 24");
    EXPECT_EQ(layout.frame("r199"), "16 5576 288 24");
    EXPECT_THAT(layout.conflicts(), ElementsAre());
    EXPECT_THAT(layout.ambiguities(), ElementsAre());
}

} // namespace
