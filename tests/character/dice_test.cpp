// The real dice: bounds, independence of successive totals, repeatable streams.

#include "character/dice.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <vector>

namespace korvane {
namespace {

// The chi-square statistic of pairs of successive 2D6 totals against independent dice. There are 120 degrees of
// freedom: sound dice go beyond the bound less than once in a thousand million runs.
constexpr double kBound = 260;
template <typename RollTotal>
double ChiSquareOfPairs(RollTotal roll) {
    constexpr int kPairs = 130000;
    std::map<std::pair<int, int>, int> seen;
    for (int i = 0; i < kPairs; ++i)
        ++seen[{roll(), roll()}];
    double sum = 0;
    for (const auto& [pair, count] : seen) {
        const double expected = kPairs * (6 - std::abs(pair.first - 7)) * (6 - std::abs(pair.second - 7)) / 1296.0;
        sum += (count - expected) * (count - expected) / expected;
    }
    EXPECT_EQ(seen.size(), 121U);  // each pair of totals from 2 to 12, and no other
    return sum;
}

TEST(Dice, SuccessiveTotalsAreIndependent) {
    ClockDice clock;
    SeededDice seeded(7, 1);
    EXPECT_LT(ChiSquareOfPairs([&] { return clock.Roll(2, 6); }), kBound);
    EXPECT_LT(ChiSquareOfPairs([&] { return clock.Roll(1, 6) + clock.Draw(6) + 1; }), kBound);
    EXPECT_LT(ChiSquareOfPairs([&] { return seeded.Roll(2, 6); }), kBound);
    EXPECT_LT(ChiSquareOfPairs([] { return ClockDice().Draw(6) + ClockDice().Draw(6) + 2; }), kBound);
}

TEST(Dice, SeededDiceRepeatAndDifferByCharacterAndSeed) {
    std::set<std::vector<int>> streams;
    for (std::uint64_t seed = 0; seed < 60; ++seed)
        for (std::uint64_t number = 0; number < 60; ++number) {
            const auto stream = [&] {
                SeededDice dice(seed, number);
                return std::vector{dice.Roll(1, 1000), dice.Draw(1000), dice.Roll(2, 1000), dice.Draw(1000)};
            };
            streams.insert(stream());
            ASSERT_EQ(stream(), stream());
        }
    EXPECT_EQ(streams.size(), 3600U) << "seed 1 with character 2 isn't seed 2 with character 1";
}

}  // namespace
}  // namespace korvane
