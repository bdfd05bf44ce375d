#include "platform/layout/LayoutSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <random>

namespace {

constexpr LayoutAttribute attributes[] = {LayoutAttribute::left, LayoutAttribute::right, LayoutAttribute::width,
                                          LayoutAttribute::centerX};

double valueOf(const CGRect& frame, LayoutAttribute attribute) {
    return attribute == LayoutAttribute::width   ? frame.size.width
           : attribute == LayoutAttribute::left  ? frame.minX()
           : attribute == LayoutAttribute::right ? frame.maxX()
                                                 : frame.midX();
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
    const int side = static_cast<int>(constraint.relation);
    return side == 0 ? std::abs(found) : std::max(0.0, -side * found);
}

/// Random frames, and constraints that all hold for them: a system that has an answer.
struct RandomSystem {
    explicit RandomSystem(unsigned seed) : random(seed) {
        for (int item = 0, count = 2 + number(8); item < count; ++item) {
            items.push_back({.name = "item " + std::to_string(item)});
            frames.push_back(CGRectMake(number(300), number(300), number(100), number(100)));
            if (number(3) == 0) {
                items.back().width.length = number(150);
            }
        }
        for (int count = 10 + number(40); count > 0; --count) {
            addConstraint();
        }
    }

    int number(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }

    void addConstraint() {
        LayoutConstraint constraint;
        constraint.first = number(static_cast<int>(items.size()));
        constraint.firstAttribute = attributes[number(4)];
        constraint.second = number(static_cast<int>(items.size()) + 1) - 1;
        constraint.secondAttribute = attributes[number(4)];
        constraint.multiplier = number(4) == 0 ? 0.25 * (1 + number(12)) : 1;
        constraint.relation = static_cast<LayoutRelation>(number(3) - 1);
        constraint.priority = number(3) == 0 ? 1 + number(999) : 1000;
        constraint.name = "constraint " + std::to_string(constraints.size());
        constraint.constant = difference(constraint, frames) - static_cast<int>(constraint.relation) * number(30);
        constraint.constant += constraint.priority < 1000 ? number(200) - 100 : 0;
        constraints.push_back(constraint);
    }

    /// Moves some of the constraints, so that they may contradict each other.
    void spoil() {
        for (int count = 0; count < 4; ++count) {
            constraints[random() % constraints.size()].constant += number(400) - 200;
        }
    }

    [[nodiscard]] LayoutResult solved() const { return solveLayout(items, constraints); }

    std::mt19937 random;
    std::vector<LayoutItem> items;
    std::vector<CGRect> frames;
    std::vector<LayoutConstraint> constraints;
};

/// Whether an attribute of an item moves when a wish below every priority there is pushes it.
bool canMove(RandomSystem system, std::size_t item, LayoutAttribute attribute, const CGRect& frame) {
    system.constraints.push_back({.first = static_cast<int>(item), .firstAttribute = attribute, .priority = 0.5});
    bool moves = false;
    for (const double push : {-1e4, 1e4}) {
        system.constraints.back().constant = push;
        const CGRect pushed = system.solved().frames[item];
        moves = moves || std::abs(valueOf(pushed, attribute) - valueOf(frame, attribute)) > 1e-4;
    }
    return moves;
}

TEST(LayoutRobustnessTest, AmbiguityIsReportedExactlyWhereAnAttributeCanMove) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        const RandomSystem system(seed);
        const LayoutResult result = system.solved();
        std::map<int, LayoutAmbiguity> reported;
        for (const LayoutAmbiguity& ambiguity : result.ambiguities) {
            reported[ambiguity.item] = ambiguity;
        }
        for (std::size_t item = 0; item < system.items.size(); ++item) {
            SCOPED_TRACE("seed " + std::to_string(seed) + " item " + std::to_string(item));
            const LayoutAmbiguity& ambiguity = reported[static_cast<int>(item)];
            ASSERT_EQ(ambiguity.x, canMove(system, item, LayoutAttribute::left, result.frames[item]));
            ASSERT_EQ(ambiguity.width, canMove(system, item, LayoutAttribute::width, result.frames[item]));
        }
    }
}

TEST(LayoutRobustnessTest, OneHigherWishIsWorthMoreThanAllLowerOnesInEverySystem) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        const RandomSystem system(seed);
        RandomSystem upper = system;
        upper.constraints.erase(std::remove_if(upper.constraints.begin(), upper.constraints.end(),
                                               [](const LayoutConstraint& each) { return each.priority <= 750; }),
                                upper.constraints.end());
        const auto cost = [&upper](const LayoutResult& result) {
            std::map<double, double> sums;
            for (const LayoutConstraint& constraint : upper.constraints) {
                sums[constraint.priority] += violation(constraint, result.frames);
            }
            return sums;
        };
        for (LayoutItem& item : upper.items) {
            item.width.length.reset();
        }
        const auto together = cost(system.solved());
        for (const auto& [priority, sum] : cost(upper.solved())) {
            ASSERT_NEAR(sum, together.at(priority), 1e-4) << "seed " << seed << " priority " << priority;
        }
    }
}

void expectRequiredHold(const RandomSystem& system, const LayoutResult& result) {
    for (const LayoutConstraint& constraint : system.constraints) {
        const bool isLeftOut =
            std::any_of(result.conflicts.begin(), result.conflicts.end(),
                        [&](const LayoutConflict& conflict) { return conflict.name == constraint.name; });
        if (constraint.priority >= 1000 && !isLeftOut) {
            EXPECT_LT(violation(constraint, result.frames), 1e-6) << constraint.name;
        }
    }
}

/// The constraints that a conflict names contradict each other. Fewer of them may only do so for another reason, a
/// size below zero.
void expectNoneIsNeedless(RandomSystem system, const LayoutConflict& conflict, bool isOnlyOne) {
    std::vector<LayoutConstraint> involved;
    for (const LayoutConstraint& constraint : system.constraints) {
        if (constraint.name == conflict.name ||
            std::count(conflict.others.begin(), conflict.others.end(), constraint.name) > 0) {
            involved.push_back(constraint);
        }
    }
    system.constraints = involved;
    EXPECT_GE(system.solved().conflicts.size(), 1U);
    for (std::size_t index = 0; index < involved.size() && isOnlyOne; ++index) {
        system.constraints = involved;
        system.constraints.erase(system.constraints.begin() + static_cast<std::ptrdiff_t>(index));
        for (const LayoutConflict& smaller : system.solved().conflicts) {
            EXPECT_THAT(conflict.others, testing::Not(testing::IsSupersetOf(smaller.others)));
        }
    }
}

TEST(LayoutRobustnessTest, WhatIsRequiredHoldsUnlessItIsReportedWithWhatItContradicts) {
    std::size_t conflicts = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        RandomSystem system(seed);
        const LayoutResult feasible = system.solved();
        EXPECT_TRUE(feasible.conflicts.empty());
        expectRequiredHold(system, feasible);
        system.spoil();
        const LayoutResult contradictory = system.solved();
        expectRequiredHold(system, contradictory);
        for (const LayoutConflict& conflict : contradictory.conflicts) {
            SCOPED_TRACE(conflict.name);
            expectNoneIsNeedless(system, conflict, contradictory.conflicts.size() == 1);
        }
        conflicts += contradictory.conflicts.size();
    }
    EXPECT_GT(conflicts, 100U);
}

} // namespace
