// What lives are measured by.

#include "play/balance.h"

#include <gtest/gtest.h>

namespace korvane::play {
namespace {

constexpr auto kTerm = "------ Term 2 ------";
constexpr auto kSentence = "Imprisoned; parole threshold 9";

TEST(Balance, CountsAStayInPrisonFromItsFirstSentenceToTheWayOut) {
    using History = std::vector<std::string>;
    PrisonFigures prison;
    // Out of the third term, after a sentence on top; out of another by flight; a transfer of a free man is none.
    NotePrison(History{"Transfer to Navy Flight", kSentence, kTerm, kTerm, kSentence, kTerm, "Released!", kTerm, kTerm,
                       kSentence, kTerm, "You escape!", "Released!"},
               prison);
    EXPECT_EQ(prison.longest, 3);
    NotePrison(History{kSentence, kTerm, kTerm, kTerm, kTerm, kTerm}, prison);  // nobody knows how long it would last
    EXPECT_EQ(prison.cutShort, 1U);
    NotePrison(History{kSentence, kTerm, kTerm, kTerm, kTerm, kTerm, kTerm}, prison);
    EXPECT_EQ(prison.freeWithinFive.of, 3U);
    EXPECT_EQ(prison.freeWithinFive.hits, 2U);
    EXPECT_EQ(prison.longest, 6);
}

}  // namespace
}  // namespace korvane::play
