// How lucky a life was, in one line.
#pragma once

#include <string>

#include "character/rolled_check.h"

namespace korvane {

// The share, from 0 to 1, of lives with as many checks whose rolls sum up to less.
double ShareOfLessLucky(const Luck& luck);

// "14 checks rolled 103 where dice bring 98, luckier than 69 % of lives with as many; best 12 (Edu 8+), worst 3 (End
// 6+)". Rolls that should be low count by the opposite side of the dice. Empty where nothing was rolled.
std::string LuckText(const Luck& luck);
// The same after "Luck: ".
std::string LuckLine(const Luck& luck);

}  // namespace korvane
