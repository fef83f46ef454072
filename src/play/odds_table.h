// Odds in words and figures, as they are shown.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "play/odds.h"

namespace korvane::play {

// "58 % ± 3", "83 % (30 of 36)", "under 2 %".
std::string ChanceText(const Estimate& chance);
// How likely that is in a word, as far as the margin lets it be said: "likely", "likely or even".
std::string WordFor(const Estimate& chance);
// "3.4 ± 0.2"; of money, "Cr12,300 ± 400".
std::string NumberText(const Estimate& number, bool money);

struct OddsTable {
    struct Row {
        std::string caption;
        std::vector<std::string> cells;  // one for each column; a dash where there is nothing to tell
        std::string sentence;            // all of them, to be heard
    };
    std::vector<std::string> columns;     // of the figures that differ between the answers; none: nothing does
    std::vector<std::string> meanings;    // of the columns, in a sentence each
    std::vector<Row> rows;                // one for each answer
    std::vector<std::string> judgements;  // which answer is best for what, as far as that can be said
    std::string note;                     // how it was found
    std::uint64_t lives = 0;              // of each answer
};
OddsTable TableOf(const OddsFigures& odds);

}  // namespace korvane::play
