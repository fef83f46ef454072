// Codes in words: the handbook of those who write rule data, made of the rows themselves.
#pragma once

#include <string>

#include "engine/codes/chain.h"

namespace korvane::codes {

// What the effects do, as one sentence without a full stop; empty for none.
std::string Describe(const Effects& effects);
// The same for a row, with what happens where its code doesn't occur.
std::string Describe(const Row& row);

}  // namespace korvane::codes
