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

constexpr LayoutAttribute axes[2][4] = {
    {LayoutAttribute::left, LayoutAttribute::right, LayoutAttribute::width, LayoutAttribute::centerX},
    {LayoutAttribute::top, LayoutAttribute::bottom, LayoutAttribute::height, LayoutAttribute::centerY}};

double valueOf(const CGRect& frame, LayoutAttribute attribute) {
    const double values[2][4] = {{frame.minX(), frame.maxX(), frame.size.width, frame.midX()},
                                 {frame.minY(), frame.maxY(), frame.size.height, frame.midY()}};
    const auto* found = std::find(&axes[0][0], &axes[0][0] + 8, attribute);
    return (&values[0][0])[found - &axes[0][0]];
}

/// first - (multiplier * second + constant)
double difference(const LayoutConstraint& constraint, const std::vector<CGRect>& frames) {
    const auto value = [&](int item, LayoutAttribute attribute) {
        return item < 0 ? 0.0 : valueOf(frames[static_cast<std::size_t>(item)], attribute);
    };
    return value(constraint.first, constraint.firstAttribute) -
           constraint.multiplier * value(constraint.second, constraint.secondAttribute) - constraint.constant;
}

/// How far it is on the wrong side.
double violation(const LayoutConstraint& constraint, const std::vector<CGRect>& frames) {
    const double found = difference(constraint, frames);
    if (constraint.relation == LayoutRelation::equal)
        return std::abs(found);
    return std::max(0.0, constraint.relation == LayoutRelation::lessThanOrEqual ? found : -found);
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
        const auto& axis = axes[number(2)];
        LayoutConstraint constraint;
        constraint.first = number(static_cast<int>(m_items.size()));
        constraint.firstAttribute = axis[number(4)];
        constraint.second = number(static_cast<int>(m_items.size()) + 1) - 1;
        constraint.secondAttribute = axis[number(4)];
        constraint.multiplier = number(4) == 0 ? 0.25 * (1 + number(12)) : 1;
        constraint.relation = static_cast<LayoutRelation>(number(3) - 1);
        constraint.priority = number(3) == 0 ? 1 + number(999) : 1000;
        constraint.name = "constraint " + std::to_string(m_constraints.size());
        constraint.constant = difference(constraint, m_frames);
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

constexpr double pushes[] = {-1e4, 1e4};

/// Where an attribute of an item can move to when a wish below every priority there is pushes it.
bool canMove(const RandomSystem& system, std::size_t item, LayoutAttribute attribute, double from) {
    std::vector<LayoutConstraint> constraints = system.constraints();
    constraints.push_back({.first = static_cast<int>(item), .firstAttribute = attribute, .priority = 0.5});
    return std::any_of(std::begin(pushes), std::end(pushes), [&](double push) {
        constraints.back().constant = push;
        const LayoutResult pushed = solveLayout(system.items(), constraints);
        return std::abs(valueOf(pushed.frames[item], attribute) - from) > 1e-4;
    });
}

TEST(LayoutRobustnessTest, AmbiguityIsReportedExactlyWhereAnAttributeCanMove) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        const RandomSystem system(seed);
        const LayoutResult result = solveLayout(system.items(), system.constraints());
        for (std::size_t item = 0; item < system.items().size(); ++item) {
            SCOPED_TRACE("seed " + std::to_string(seed) + " item " + std::to_string(item));
            LayoutAmbiguity reported;
            for (const LayoutAmbiguity& ambiguity : result.ambiguities) {
                if (ambiguity.item == static_cast<int>(item))
                    reported = ambiguity;
            }
            const CGRect& frame = result.frames[item];
            ASSERT_EQ(reported.x, canMove(system, item, LayoutAttribute::left, frame.minX()));
            ASSERT_EQ(reported.y, canMove(system, item, LayoutAttribute::top, frame.minY()));
            ASSERT_EQ(reported.width, canMove(system, item, LayoutAttribute::width, frame.size.width));
            ASSERT_EQ(reported.height, canMove(system, item, LayoutAttribute::height, frame.size.height));
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

/// Moves some of a system's required constraints, so that it may contradict itself.
std::vector<LayoutConstraint> spoiled(const RandomSystem& system, unsigned seed) {
    std::vector<LayoutConstraint> constraints = system.constraints();
    std::mt19937 random(seed);
    for (int count = 0; count < 4; ++count)
        constraints[random() % constraints.size()].constant += static_cast<double>(random() % 400) - 200;
    return constraints;
}

void expectRequiredHold(const std::vector<LayoutConstraint>& constraints, const LayoutResult& result) {
    std::vector<bool> isLeftOut(constraints.size(), false);
    for (const LayoutConflict& conflict : result.conflicts)
        isLeftOut.at(static_cast<std::size_t>(conflict.constraint)) = true;
    for (std::size_t index = 0; index < constraints.size(); ++index) {
        if (constraints[index].priority >= 1000 && !isLeftOut[index]) {
            EXPECT_LT(violation(constraints[index], result.frames), 1e-6) << constraints[index].name;
        }
    }
}

TEST(LayoutRobustnessTest, WhatIsRequiredHoldsUnlessItIsReported) {
    std::size_t conflicts = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        const RandomSystem system(seed);
        const LayoutResult feasible = solveLayout(system.items(), system.constraints());
        ASSERT_TRUE(feasible.conflicts.empty()) << feasible.conflicts.front().name;
        expectRequiredHold(system.constraints(), feasible);
        const LayoutResult contradictory = solveLayout(system.items(), spoiled(system, seed));
        conflicts += contradictory.conflicts.size();
        expectRequiredHold(spoiled(system, seed), contradictory);
    }
    EXPECT_GT(conflicts, 100U);
}

TEST(LayoutRobustnessTest, ConflictNamesConstraintsThatContradictEachOtherAndNoneThatIsNeedless) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        const RandomSystem system(seed);
        const LayoutResult result = solveLayout(system.items(), spoiled(system, seed));
        for (const LayoutConflict& conflict : result.conflicts) {
            SCOPED_TRACE("seed " + std::to_string(seed) + " " + conflict.name);
            const auto& others = conflict.others;
            std::vector<LayoutConstraint> involved = spoiled(system, seed);
            involved.erase(std::remove_if(involved.begin(), involved.end(),
                                          [&](const LayoutConstraint& constraint) {
                                              return constraint.name != conflict.name &&
                                                     std::count(others.begin(), others.end(), constraint.name) == 0;
                                          }),
                           involved.end());
            ASSERT_GE(solveLayout(system.items(), involved).conflicts.size(), 1U);
            // Fewer of them may only contradict each other for another reason, a size below zero.
            for (std::size_t index = 0; index < involved.size() && result.conflicts.size() == 1; ++index) {
                std::vector<LayoutConstraint> rest = involved;
                rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(index));
                for (const LayoutConflict& smaller : solveLayout(system.items(), rest).conflicts)
                    ASSERT_THAT(others, testing::Not(testing::IsSupersetOf(smaller.others)));
            }
        }
    }
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
        item root frame 0 0 1e300 100; item a size 1e300 1e-300; item b
        a.left = root.left; a.right <= 1e300; a.top = -1e300 * b.height + 1e300
        a.width = 1e300 * b.width + 1e300 @999; b.width = 1e300 * a.height
        b.left = a.right; b.right = root.right @300; b.top = 1e300 * a.top
    )");
    for (const CGRect& frame : layout.result().frames) {
        EXPECT_TRUE(std::isfinite(frame.minX() + frame.minY() + frame.size.width + frame.size.height));
        EXPECT_GE(frame.size.width, 0);
    }
}

} // namespace
