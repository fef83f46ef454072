// Checked numbers: the last value that fits at either end, and the first that doesn't.

#include "base/numbers.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

TEST(Numbers, ThrowAtBothEndsInsteadOfWrapping) {
    Count most = 32767;
    Count least = -32768;
    EXPECT_THROW(most += 1, RuleError);
    EXPECT_THROW(least -= 1, RuleError);
    EXPECT_THROW(least = -least, RuleError);
    EXPECT_EQ(most + least, -1) << "a refused number leaves the old one";
    EXPECT_THROW(Count(65536 + 7), RuleError);
    EXPECT_THROW(Count(0xFFFFFFFFU), RuleError);
    Credits rich = 2147483647;
    Credits poor = -2147483648LL;
    EXPECT_THROW(rich += 1, RuleError);
    EXPECT_THROW(poor = poor - 1, RuleError);
    EXPECT_THROW(rich = rich * 2 + 9, RuleError);
}

}  // namespace
}  // namespace korvane
