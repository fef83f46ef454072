// The two tests that a check string, as "Edu 8+", can be put to.
#pragma once

#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane {

// The target of a check string: the number from its fifth character on.
int CheckTarget(std::string_view check);

// Rolls 2D6 against the check. The result is the effect: 0 or more is a success. The modifier is that of the
// characteristic in the slot given by the place of the first "+" in the check, not of the one that it names. Throws
// RuleError (subscript), after the dice, when that place is beyond the tenth character.
int RollCheck(Session& session, std::string_view check, int dm);

// Whether the named characteristic reaches the target, without dice. A name that isn't known is told to the player and
// fails.
bool CheckStat(Session& session, std::string_view check);

}  // namespace korvane
